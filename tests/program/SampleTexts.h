#pragma once

// Accounts of the sample as the trees show them, and errors as reports number them.
namespace program {

inline constexpr const wchar_t* kMartin = L"Martin (Jean Martin)";
inline constexpr const wchar_t* kBlanc = L"Blanc";  // has no full name
inline constexpr const wchar_t* kAdmin = L"Admin (Administrateur principal)";
inline constexpr const wchar_t* kQuality = L"Qualité (Contrôle final et réclamations)";
inline constexpr const wchar_t* kAdministrators =
    L"Administrateurs (Contrôle total de l'application)";
inline constexpr const wchar_t* kEveryone = L"Tout le monde (Tous les utilisateurs)";

// What the database reports.
inline constexpr long kDatabaseError = -2147467259;
// What is left of a session server that has died.
inline constexpr long kAccessViolation = static_cast<long>(0xC0000005);

}  // namespace program
