#pragma once

#include <string_view>

namespace browser {

// What stands in the head of a report's page: it fetches nothing and runs nothing, follows the
// light or dark colours of its reader, and prints in black on white with no account torn apart
// where that can be helped. A name that is written from right to left turns nothing around it.
inline constexpr std::string_view kHtmlStyle = R"(<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<style>
:root { --ground: #fff; --text: #1b1b1f; --quiet: #55555f; --line: #d5d5dc; --shade: #f3f3f7; --warning: #8a3b00; --warning-ground: #fff1e2; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #17171b; --text: #ececf1; --quiet: #a9a9b6; --line: #3a3a44; --shade: #212128; --warning: #ffc38a; --warning-ground: #3a2410; }
}
body { background: var(--ground); color: var(--text); font: 10.5pt/1.45 "Segoe UI", "Helvetica Neue", Arial, sans-serif; margin: 2em auto; max-width: 62em; padding: 0 1.5em; }
h1 { font-size: 1.7em; font-weight: 600; margin: 0 0 .6em; }
h2 { border-bottom: 2px solid var(--line); font-size: 1.25em; font-weight: 600; margin: 2.2em 0 .8em; padding-bottom: .25em; }
h3 { font-size: 1.05em; font-weight: 600; margin: 0; overflow-wrap: anywhere; }
h3 span, .quiet { color: var(--quiet); font-weight: 400; }
dl { display: grid; gap: .15em 1.2em; grid-template-columns: max-content 1fr; margin: 0; }
dt { color: var(--quiet); }
dd { margin: 0; overflow-wrap: anywhere; }
nav { margin-top: 1em; }
a { color: inherit; }
article { border-bottom: 1px solid var(--line); content-visibility: auto; contain-intrinsic-size: auto 8em; padding: .8em 0; }
p { margin: .25em 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; margin-top: .4em; width: 100%; }
th, td { border: 1px solid var(--line); overflow-wrap: anywhere; padding: .3em .6em; text-align: left; vertical-align: top; }
th { background: var(--shade); font-weight: 600; width: 16em; }
.list th { position: sticky; top: 0; width: auto; }
thead { display: table-header-group; }
ul { column-gap: 1.5em; columns: 18em; list-style: none; margin: 0; padding: 0; }
li { break-inside: avoid; }
.warning { background: var(--warning-ground); border-left: 4px solid var(--warning); color: var(--warning); margin: 1em 0; padding: .6em .9em; }
@page { margin: 15mm; }
@media print {
  :root { --ground: #fff; --text: #000; --quiet: #444; --line: #999; --shade: #eee; --warning: #000; --warning-ground: #fff; }
  body { font-size: 9pt; margin: 0; max-width: none; padding: 0; }
  nav { display: none; }
  article { content-visibility: visible; }
  h2, h3 { break-after: avoid; }
  section + section { break-before: page; }
  tr { break-inside: avoid; }
  th { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
</style>
)";

}  // namespace browser
