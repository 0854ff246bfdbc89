#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "data/Text.h"
#include "server/core/accounts/Accounts.h"
#include "server/core/accounts/Counters.h"
#include "server/core/accounts/Rights.h"
#include "server/core/samples/Filling.h"
#include "server/core/samples/InsertDisplayTexts.h"
#include "server/core/samples/SampleData.h"
#include "server/core/sql/BulkInsert.h"
#include "server/core/sql/Query.h"

namespace server {
namespace {

constexpr std::string_view kFirstNames[] = {
    "Adèle",   "Agnès", "Aurélien", "Benoît",  "Camille",  "Cécile",   "Chloé",   "Damien",
    "Élodie",  "Émile", "Fabrice",  "Gaëlle",  "Hélène",   "Ismaël",   "Jérôme",  "Joëlle",
    "Karine",  "Léa",   "Loïc",     "Maëlys",  "Nathan",   "Noémie",   "Océane",  "Pierre",
    "Quentin", "Rémi",  "Solène",   "Thérèse", "Ulysse",   "Valérie",  "William", "Xavier",
    "Yann",    "Zoé",   "Inès",     "Gérard",  "Brigitte", "Stéphane", "Anaïs",   "Raphaël",
};
constexpr std::string_view kLastNames[] = {
    "Arnaud",  "Aubert",  "Barbier",   "Baron",      "Benoît",      "Berger",  "Blanchard",
    "Boucher", "Brunet",  "Caron",     "Carpentier", "Charpentier", "Collet",  "Cousin",
    "Daniel",  "Denis",   "Deschamps", "Dufour",     "Dumas",       "Dupuis",  "Étienne",
    "Fabre",   "Fleury",  "Gaillard",  "Gérard",     "Giraud",      "Guérin",  "Guillaume",
    "Hubert",  "Huet",    "Jacquet",   "Joly",       "Lacroix",     "Lambert", "Leclerc",
    "Lefèvre", "Lemaire", "Lucas",     "Maillard",   "Marchand",    "Meunier", "Meyer",
    "Michel",  "Moulin",  "Noël",      "Olivier",    "Paris",       "Picard",  "Prévost",
    "Renaud",  "Rivière", "Rolland",   "Roger",      "Roussel",     "Schmitt", "Vidal",
};
constexpr std::string_view kDepartments[] = {
    "Atelier", "Agence", "Bureau d'études", "Chantier", "Dépôt", "Équipe", "Filiale", "Projet",
};
constexpr std::string_view kActions[] = {
    "Consulter", "Créer", "Modifier", "Valider", "Supprimer", "Exporter", "Imprimer", "Clôturer",
};
constexpr std::string_view kSubjects[] = {
    "les commandes", "les factures", "les contrats",     "le stock",
    "les devis",     "les congés",   "les référentiels", "les relevés",
};

constexpr int kAdmin = 1;
constexpr int kAdministrators = 1;
constexpr int kEveryone = 2;
constexpr int kAdministerPermissionId = 1;
constexpr std::size_t kLinksOfUser = 5;
constexpr std::size_t kPermissionsOfGroup = 20;

// Draws the same numbers everywhere: the library's distributions differ between compilers, the
// generator itself does not.
class RandomNumbers {
 public:
  // Adds different numbers from first to last to some that are taken already, up to count in all.
  void Fill(std::vector<int>& taken, int first, int last, std::size_t count) {
    if (last < first) return;
    const auto choices = static_cast<unsigned>(last - first + 1);
    const std::size_t most = std::min(count, taken.size() + choices);
    while (taken.size() < most) {
      const int number = first + static_cast<int>(generator_() % choices);
      if (std::find(taken.begin(), taken.end(), number) == taken.end()) taken.push_back(number);
    }
  }

 private:
  std::mt19937 generator_{20260101};
};

struct PersonName {
  std::string login;
  std::string fullName;
};

// The names of a made-up person; the login is different for each number.
PersonName PersonNumber(int number) {
  const auto index = static_cast<std::size_t>(number);
  const std::size_t first = index % std::size(kFirstNames);
  const std::size_t last = index / std::size(kFirstNames) % std::size(kLastNames);
  const std::size_t round = index / (std::size(kFirstNames) * std::size(kLastNames));
  const std::string firstName(kFirstNames[first]);
  const std::string lastName(kLastNames[last]);
  return {firstName + "." + lastName + (round == 0 ? "" : std::to_string(round + 1)),
          firstName + " " + lastName};
}

void InsertUsers(Engine& engine, const PasswordCipher& passwords, int count) {
  BulkInsert insert(engine, "QRUSER", {"USERID", "NAME", "FULLNAME", "PASSWORD"});
  insert.Add(kAdmin, "Admin", "Administrateur principal",
             data::ToUtf8(passwords.Encrypt(data::FromUtf8(sample::kPassword), kAdmin)));
  for (int id = kAdmin + 1; id <= count; ++id) {
    const PersonName name = PersonNumber(id);
    insert.Add(id, name.login, name.fullName, nullptr);
  }
  insert.Finish();
  RaiseCounter(engine, "QRUSRN", std::max(count, kAdmin));
}

void InsertGroups(Engine& engine, int count) {
  BulkInsert insert(engine, "QRGROUP", {"GROUPID", "NAME", "DESCR"});
  insert.Add(kAdministrators, kAdministratorsGroup, "Full control of the application");
  insert.Add(kEveryone, kEveryoneGroup, "All users");
  for (int id = kEveryone + 1; id <= count; ++id) {
    const auto kind = static_cast<std::size_t>(id) % std::size(kDepartments);
    const std::string number = std::to_string(id);
    insert.Add(id, std::string(kDepartments[kind]) + " " + number, "Unité n° " + number);
  }
  insert.Finish();
  RaiseCounter(engine, "QRGPRN", std::max(count, kEveryone));
}

void InsertPermissions(Engine& engine, int count) {
  BulkInsert insert(engine, "QRPERM", {"PERMID", "NAME", "RIGHTS"});
  insert.Add(kAdministerPermissionId, kAdministerPermission, kAdministerRight);
  for (int id = kAdministerPermissionId + 1; id <= count; ++id) {
    const auto index = static_cast<std::size_t>(id);
    const std::size_t subject = index / std::size(kActions) % std::size(kSubjects);
    insert.Add(id,
               std::string(kActions[index % std::size(kActions)]) + " " +
                   std::string(kSubjects[subject]) + " (" + std::to_string(id) + ")",
               0);
  }
  insert.Finish();
}

void InsertGroupPermissions(Engine& engine, RandomNumbers& numbers, const GeneratedSize& size) {
  BulkInsert insert(engine, "QRGPRM", {"GROUPID", "PERMID"});
  for (int group = 1; group <= std::max(size.groups, kEveryone); ++group) {
    std::vector<int> permissions;
    if (group == kAdministrators) permissions.push_back(kAdministerPermissionId);
    numbers.Fill(permissions, kAdministerPermissionId + 1, size.permissions, kPermissionsOfGroup);
    for (const int permission : permissions) insert.Add(group, permission);
  }
  insert.Finish();
}

void InsertUserLinks(Engine& engine, RandomNumbers& numbers, const GeneratedSize& size) {
  BulkInsert member(engine, "QRUSGP", {"USERID", "GROUPID"});
  BulkInsert permit(engine, "QRUPRM", {"USERID", "PERMID"});
  for (int user = kAdmin; user <= std::max(size.users, kAdmin); ++user) {
    std::vector<int> groups{kEveryone};
    if (user == kAdmin) groups.push_back(kAdministrators);
    numbers.Fill(groups, kEveryone + 1, size.groups, kLinksOfUser);
    for (const int group : groups) member.Add(user, group);
    std::vector<int> permissions;
    numbers.Fill(permissions, kAdministerPermissionId + 1, size.permissions, kLinksOfUser);
    for (const int permission : permissions) permit.Add(user, permission);
  }
  member.Finish();
  permit.Finish();
}

}  // namespace

void FillGenerated(Engine& engine, const PasswordCipher& passwords, const GeneratedSize& size) {
  RandomNumbers numbers;
  WriteTransaction transaction(engine);
  InsertUsers(engine, passwords, size.users);
  InsertGroups(engine, size.groups);
  InsertPermissions(engine, size.permissions);
  InsertGroupPermissions(engine, numbers, size);
  InsertUserLinks(engine, numbers, size);
  InsertDisplayTexts(engine);
  transaction.Commit();
}

}  // namespace server
