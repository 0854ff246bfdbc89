#pragma once

#include <cstdint>
#include <vector>

#include "server/core/samples/SampleData.h"

namespace test_support {

// Identifiers of the sample company, under the names that its accounts and permissions have there.
struct Sample {
  // Users.
  static constexpr std::int32_t kAdmin = 1;
  static constexpr std::int32_t kMoreau = 2;  // the other administrator
  static constexpr std::int32_t kBernard = 3;
  static constexpr std::int32_t kMartin = 9;    // in Everyone, Production and Laboratoire
  static constexpr std::int32_t kGarnier = 17;  // deleted
  static constexpr std::int32_t kBlanc = 20;    // full name null
  static constexpr std::int32_t kMercier = 26;  // full name empty
  static constexpr std::int32_t kClement = 34;
  static constexpr std::int32_t kOeuvrard = 38;
  static constexpr std::int32_t kStagiaire = 40;  // without full name and password
  static constexpr std::int32_t kNextUser = 41;

  // Groups.
  static constexpr std::int32_t kAdministrators = 1;
  static constexpr std::int32_t kEveryone = 2;
  static constexpr std::int32_t kQualite = 6;
  static constexpr std::int32_t kProduction = 7;
  static constexpr std::int32_t kLaboratoire = 12;  // Martin, Clément and Œuvrard
  static constexpr std::int32_t kNextGroup = 13;

  // Permissions.
  static constexpr std::int32_t kUserAdministration = 1;
  static constexpr std::int32_t kStock = 14;      // "Consulter le stock"; Martin's own
  static constexpr std::int32_t kReadings = 20;   // "Saisir un relevé de contrôle"; Martin's too
  static constexpr std::int32_t kReleasing = 21;  // "Libérer un lot"; the quality's
  static constexpr std::int32_t kExport = 29;     // "Exporter des données"
  static constexpr std::int32_t kAudit = 30;

  // Rows in the order of their names, in which the server lists them.
  static std::vector<server::sample::Group> GroupsByName();
  static std::vector<server::sample::Permission> PermissionsByName();
};

}  // namespace test_support
