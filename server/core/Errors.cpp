#include "server/core/Errors.h"

#include <string>

namespace server {
namespace {

// The text of an error; a percent sign stands for the detail.
std::wstring_view TextOf(SessionError error) {
  switch (error) {
    case kDatabaseError:
      return L"%";
    case kCommandLineEmpty:
      return L"La ligne de commande ne désigne aucune session. Attendu : /source:NOM /token:JETON "
             L"/session:NUMÉRO.";
    case kCommandLineUnreadable:
      return L"La ligne de commande de la session est illisible : %.";
    case kSourceUnknown:
      return L"La source de données « % » n'existe pas.";
    case kSourceUnreadable:
      return L"La description de la source de données « % » est incomplète.";
    case kSessionUnknown:
      return L"La session % n'existe pas.";
    case kSessionClosed:
      return L"La session % est fermée. Ouvrez une nouvelle session.";
    case kTokenWrong:
      return L"Le jeton présenté n'est pas celui de la session %.";
    case kSessionUserGone:
      return L"L'utilisateur de la session % a été supprimé.";
    case kNoSessionOpen:
      return L"Aucune session n'est ouverte.";
    case kSessionAlreadyOpen:
      return L"Une session est déjà ouverte.";
    case kCounterUnknown:
      return L"Le compteur « % » n'existe pas.";
    case kCounterExhausted:
      return L"Le compteur « % » est épuisé.";
    case kPasswordUnreadable:
      return L"Le mot de passe enregistré est illisible : il a été altéré ou appartient à un autre "
             L"utilisateur.";
    case kPasswordVersion:
      return L"Le mot de passe enregistré est d'une forme inconnue de ce serveur de session.";
    case kKeyFileUnreadable:
      return L"Le fichier de clé « % » est absent ou n'est pas une clé.";
    case kRandomFailed:
      return L"Le système ne fournit pas de nombres aléatoires.";
    case kResultSetClosed:
      return L"Le jeu de résultats est fermé.";
    case kNoCurrentRow:
      return L"Le jeu de résultats n'a pas de ligne courante.";
    case kColumnUnknown:
      return L"La colonne « % » n'existe pas dans le jeu de résultats.";
    case kSetNotWritable:
      return L"Les lignes de ce jeu de résultats ne peuvent pas être modifiées.";
    case kNothingToWrite:
      return L"Aucune ligne n'est en cours d'ajout ou de modification.";
    case kKeyMissing:
      return L"La nouvelle ligne n'a pas d'identifiant dans la colonne « % ».";
    case kRowGone:
      return L"La ligne a été modifiée ou supprimée par quelqu'un d'autre.";
    case kReadNotBegun:
      return L"Aucune lecture n'est en cours.";
    case kDatabasePasswordUnreadable:
      return L"Le fichier « % », qui contient le mot de passe de la base de données, est "
             L"illisible.";
    case kSessionRightLost:
      return L"L'utilisateur de la session % n'a plus le droit d'administrer les utilisateurs.";
    case kWriteUncertain:
      return L"La connexion à la base de données s'est rompue pendant l'écriture : vérifiez si la "
             L"modification a été enregistrée. %";
  }
  return {};
}

}  // namespace

void Fail(SessionError error, std::wstring_view detail) {
  std::wstring text(TextOf(error));
  const std::size_t place = text.find(L'%');
  if (place != std::wstring::npos) text.replace(place, 1, detail);
  throw data::RunTimeError(error, std::move(text));
}

void FailDatabase(std::wstring_view message) {
  Fail(kDatabaseError, message);
}

}  // namespace server
