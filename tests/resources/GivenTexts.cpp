#include "GivenTexts.h"

namespace resources_test {
namespace {

// Grouped by the windows and messages they stand in. Written down apart from the string table, so
// that a slip of the pen there shows here.
constexpr GivenText kGiven[] = {
    // The main window.
    {250, "Admin Utilisateurs"},
    {303, "Utilisateurs"},
    {308, "Groupes"},
    {105, "Ra&fraîchir"},
    {103, "&Quitter"},
    {106, "&A propos"},
    {131, "&Affecter..."},
    {133, "Supp&rimer..."},
    {304, "Membre du Groupe"},
    {305, "Droits Utilisateur"},
    {309, "Membres"},
    {310, "Droits du Groupe"},
    // Start-up.
    {750, "Permission Admin Utilisateurs requise pour modifier,"},
    {751, "créer ou supprimer une permission de groupe ou d'utilisateur."},
    // What the dialogs share.
    {101, "OK"},
    {102, "Annuler"},
    {119, "&Tous"},
    {120, "&Aucun"},
    {700, "Vos modifications ne seront pas prises en compte dans le système."},
    {701, "Souhaitez-vous poursuivre ?"},
    // The user dialog.
    {204, "Nouvel Utilisateur"},
    {205, "Modifier l'Utilisateur"},
    {319, "Utilisateur :"},
    {320, "Nom Complet :"},
    {321, "Mot de Passe :"},
    {322, "Confirmation :"},
    {121, "To&us"},
    {122, "Au&cun"},
    {702, "Mot de passe différent du mot de passe confirmé."},
    {703, "Veuillez les ressaisir."},
    {704, "Me mot de passe doit comporter moins de 20 caractères."},
    {706, "Le mot de passe doit comporter plus de 6 caractères."},
    {708, "Spécifiez le nom de l'utilisateur."},
    {765, "Cet utilisateur existe déjà."},
    // The group dialog.
    {202, "Nouveau Groupe"},
    {203, "Modifier le Groupe"},
    {317, "Groupe :"},
    {318, "Description :"},
    {707, "Spécifiez le nom du groupe."},
    {766, "Ce groupe existe déjà."},
    {767, "Nom de groupe réservé."},
    // The two-list chooser.
    {201, "Ajouter des Utilisateurs : "},
    {311, "Ensemble des Utilisateurs"},
    {312, "Utilisateurs Sélectionnés"},
    {313, "1 ) Saisissez les premières lettres du nom de l'utilisateur recherché."},
    {314, "2 ) Sélectionnez la personne souhaitée puis cliquez sur \">\"."},
    {315, "3 ) Saisissez les premières lettres du nom de l'utilisateur recherché."},
    {316, "4 ) Sélectionnez la personne souhaitée puis cliquez sur \"<\"."},
    {114, ">"},
    {115, ">>"},
    {116, "<"},
    {117, "<<"},
    // The check list.
    {206, "Liste des Choix : "},
    {307, "Permissions"},
    {323, "Cochez un élément puis cliquez sur OK. "},
    // Commands on accounts; 762 and 763 name the other button.
    {761, "Sélectionnez l'utilisateur à modifier puis cliquez sur le bouton Editer."},
    {762, "Sélectionnez l'utilisateur à supprimer puis cliquez sur le bouton Editer."},
    {763, "Sélectionnez le groupe à modifier puis cliquez sur le bouton Supprimer."},
    {764, "Sélectionnez le groupe à supprimer puis cliquez sur le bouton Supprimer."},
    {720, "Souhaitez-vous supprimer ce groupe ?"},
    {721, "Souhaitez-vous supprimer cet utilisateur ?"},
    // Commands on links.
    {710, "Sélectionnez le groupe à supprimer puis cliquez sur"},
    {711, "le bouton Supprimer dans la section Membres du Groupe."},
    {712, "le bouton Supprimer dans la section Membre du Groupe."},
    {713, "Sélectionnez la permission à supprimer puis cliquez sur "},
    {714, "le bouton Supprimer dans la section Droits Utilisateur."},
    {715, "le bouton Supprimer dans la section Droits Groupe."},
    {730, "Souhaitez-vous supprimer cette permission de groupe ?"},
    {731, "Souhaitez-vous supprimer ce membre ?"},
    {732, "Souhaitez-vous supprimer ce membre du groupe ?"},
    {733, "Souhaitez-vous supprimer cette permission utilisateur ?"},
    // Refusals that name an account.
    {1006, "Impossible de supprimer"},
    {1007, "l'utilisateur."},
    {1008, "le groupe."},
    {1009, "Impossible de supprimer l'utilisateur de"},
};

}  // namespace

std::span<const GivenText> GivenTexts() {
  return kGiven;
}

}  // namespace resources_test
