#include "browser/evidence/TableFile.h"

#include "app/ReplacedFile.h"
#include "app/StringIds.h"
#include "browser/evidence/CsvCell.h"
#include "browser/evidence/ExportFile.h"
#include "browser/evidence/HtmlPage.h"
#include "browser/evidence/HtmlText.h"

namespace browser {
namespace {

void WriteCsv(const ShownTable& table, app::ReplacedFile& file) {
  std::string lines(kByteOrderMark);
  const auto addLine = [&](const std::string& cells) { (lines += cells) += kEndOfLine; };
  if (!table.notice.empty()) addLine(CsvCell(table.notice));
  std::string cells;
  for (const std::wstring& column : table.columns) {
    cells += (cells.empty() ? "" : ";") + CsvCell(column);
  }
  addLine(cells);
  for (int row = 0; row < table.rows; ++row) {
    cells.clear();
    for (int column = 0; column < static_cast<int>(table.columns.size()); ++column) {
      if (column > 0) cells += ';';
      cells += CsvCell(table.Text(row, column));
    }
    addLine(cells);
    file.Write(lines);
    lines.clear();
  }
  file.Write(lines);
}

class PageWriter {
 public:
  PageWriter(const app::mGlobal& global, const ShownTable& table, app::ReplacedFile& file)
      : global_(global), table_(table), file_(file) {}

  void Write() {
    AddHead();
    page_ += "<table class=\"list\">\n<thead><tr>";
    for (const std::wstring& column : table_.columns) {
      page_ += "<th scope=\"col\">" + HtmlText(column) + "</th>";
    }
    page_ += "</tr></thead>\n<tbody>\n";
    for (int row = 0; row < table_.rows; ++row) AddRow(row);
    page_ += "</tbody>\n</table>\n";
    page_ += kEndOfPage;
    Flush();
  }

 private:
  void Flush() {
    file_.Write(page_);
    page_.clear();
  }

  void AddHead() {
    page_ = BeginningOfPage(table_.title);
    page_ += "<header>\n<h1>" + HtmlText(table_.title) + "</h1>\n<p><bdi>" +
             HtmlText(table_.heading) + "</bdi></p>\n<dl>\n";
    AddFact(app::kExportDate, ExportTime());
    AddFact(app::kExportSessionUser, global_.sessionUserText);
    AddFact(app::kListRows, table_.content);
    if (!table_.search.empty()) AddFact(app::kListSearch, table_.search);
    page_ += "</dl>\n";
    if (!table_.notice.empty()) {
      page_ += "<p class=\"warning\">" + HtmlText(table_.notice) + "</p>\n";
    }
    page_ += "</header>\n";
  }

  void AddFact(int name, const std::wstring& value) {
    page_ += "<dt>" + HtmlText(global_.LoadResString(name)) + "</dt><dd><bdi>" + HtmlText(value) +
             "</bdi></dd>\n";
  }

  void AddRow(int row) {
    page_ += "<tr>";
    for (int column = 0; column < static_cast<int>(table_.columns.size()); ++column) {
      page_ += "<td><bdi>" + HtmlText(table_.Text(row, column)) + "</bdi></td>";
    }
    page_ += "</tr>\n";
    Flush();
  }

  const app::mGlobal& global_;
  const ShownTable& table_;
  app::ReplacedFile& file_;
  std::string page_;
};

}  // namespace

void WriteTableFile(const app::mGlobal& global, const ShownTable& table, const std::wstring& path) {
  app::ReplacedFile file(global, path);
  if (IsPage(path)) {
    PageWriter(global, table, file).Write();
  } else {
    WriteCsv(table, file);
  }
  file.Finish();
}

}  // namespace browser
