#include "server/core/samples/SampleData.h"

namespace server::sample {
namespace {

constexpr User kUsers[] = {
    {1, "Admin", "Administrateur principal"},
    {2, "Moreau", "Delphine Moreau"},
    {3, "Bernard", "Émilie Bernard"},
    {4, "Dubois", "François Dubois"},
    {5, "Petit", "Hélène Petit"},
    {6, "Durand", "Jérôme Durand"},
    {7, "Leroy", "Anaïs Leroy"},
    {8, "Lefèvre", "Benoît Lefèvre"},
    {9, "Martin", "Jean Martin"},
    {10, "Martinez", "Inès Martinez"},
    {11, "D'Angelo", "Chiara D'Angelo"},
    {12, "Roux", "Céline Roux"},
    {13, "Fournier", "Mathieu Fournier"},
    {14, "Girard", "Noëlle Girard"},
    {15, "L'Hermitte", "Gwenaëlle L'Hermitte"},
    {16, "Bonnet", "Raphaël Bonnet"},
    {17, "Garnier(17)", "Sylvie Garnier", true},
    {18, "Faure", "Zoé Faure"},
    {19, "Rousseau", "Loïc Rousseau"},
    {20, "Blanc", nullptr},
    {21, "Guérin", "Aurélie Guérin"},
    {22, "Müller", "Jürgen Müller"},
    {23, "Henry", "Côme Henry"},
    {24, "Chevalier", "Maëlle Chevalier"},
    {25, "François", "Stéphane François"},
    {26, "Mercier", ""},
    {27, "Boyer", "Édouard Boyer"},
    {28, "Garcia", "Ana María García Núñez"},
    {29, "de La Rochefoucauld",
     "Marie-Éléonore Victoire Hippolyte Anne-Sophie de La Rochefoucauld d'Estissac, responsable "
     "déléguée à la coordination des relations avec les établissements régionaux"},
    {30, "Nguyễn", "Nguyễn Thị Hương"},
    {31, "Perrin", "Clément Perrin"},
    {32, "Morin", "Agnès Morin"},
    {33, "Mathieu", "Théo Mathieu"},
    {34, "Clément", "Joëlle Clément"},
    {35, "Gauthier", "Grégoire Gauthier"},
    {36, "Dumont", "Irène Dumont"},
    {37, "López", "Éric López"},
    {38, "Œuvrard", "Cœlia Œuvrard"},
    {39, "Żak", "Łukasz Żak"},
    {40, "Stagiaire", nullptr},
};

constexpr Group kGroups[] = {
    {1, "Administrators", "Full control of the application"},
    {2, "Everyone", "All users"},
    {3, "Direction", "Comité de direction"},
    {4, "Comptabilité", "Comptes clients, fournisseurs et trésorerie"},
    {5, "Ressources humaines", "Paie et gestion du personnel"},
    {6, "Qualité", "Contrôle final et réclamations"},
    {7, "Production", "Ateliers d'Annecy et de Châteauroux"},
    {8, "Méthodes", "Gammes, temps et outillages"},
    {9, "Achats", nullptr},
    {10, "Ventes", "France, Bénélux et Suisse"},
    {11, "Informatique", "Exploitation et assistance"},
    {12, "Laboratoire", "Mesures et essais"},
};

// The rights values 1 and 2 let everybody look and work; 4 is the administration of users.
constexpr Permission kPermissions[] = {
    {1, "User administration", 4},
    {2, "Consulter le tableau de bord", 1},
    {3, "Modifier ses préférences", 2},
    {4, "Consulter les commandes"},
    {5, "Saisir une commande"},
    {6, "Valider une commande"},
    {7, "Annuler une commande"},
    {8, "Consulter les factures"},
    {9, "Émettre une facture"},
    {10, "Émettre un avoir"},
    {11, "Clôturer un exercice"},
    {12, "Consulter les fiches de paie"},
    {13, "Modifier les fiches de paie"},
    {14, "Consulter le stock"},
    {15, "Corriger le stock"},
    {16, "Lancer un ordre de fabrication"},
    {17, "Solder un ordre de fabrication"},
    {18, "Consulter les gammes"},
    {19, "Modifier les gammes"},
    {20, "Saisir un relevé de contrôle"},
    {21, "Libérer un lot"},
    {22, "Bloquer un lot"},
    {23, "Traiter une réclamation"},
    {24, "Consulter les fournisseurs"},
    {25, "Modifier les fournisseurs"},
    {26, "Consulter les tarifs"},
    {27, "Modifier les tarifs d'achat"},
    {28, "Accorder une remise de plus de 10 %"},
    {29, "Exporter des données"},
    {30, "Session audit"},
};

constexpr Link kMemberships[] = {
    {1, 1},   {2, 1},   {2, 11},                                // the administrators
    {3, 3},   {29, 3},  {4, 3},                                 // Direction
    {4, 4},   {12, 4},  {32, 4},  {36, 4},                      // Comptabilité
    {5, 5},   {14, 5},  {36, 5},                                // Ressources humaines
    {15, 6},  {21, 6},  {34, 6},  {38, 6},                      // Qualité
    {6, 7},   {9, 7},   {13, 7},  {16, 7},  {19, 7},  {22, 7},  // Production
    {23, 7},  {27, 7},  {31, 7},  {33, 7},  {39, 7},  {17, 7},  // one of them deleted since
    {8, 8},   {16, 8},  {35, 8},                                // Méthodes
    {11, 9},  {20, 9},  {24, 9},                                // Achats
    {7, 10},  {10, 10}, {18, 10}, {25, 10}, {26, 10}, {28, 10}, {37, 10},  // Ventes
    {30, 11}, {35, 11},                                                    // Informatique
    {34, 12}, {38, 12}, {9, 12},                                           // Laboratoire
};

constexpr Link kUserPermissions[] = {
    {1, 30},  {2, 29},  {3, 11},  {4, 11},  {6, 17},  {7, 28},  {8, 19},
    {9, 20},  {9, 14},  {12, 10}, {18, 28}, {21, 21}, {21, 22}, {24, 27},
    {29, 29}, {30, 29}, {32, 8},  {36, 13}, {37, 5},  {38, 20},
};

constexpr Link kGroupPermissions[] = {
    {1, 1},   {1, 29},  {1, 30},                               // Administrators
    {2, 2},   {2, 3},                                          // Everyone
    {3, 4},   {3, 8},   {3, 12}, {3, 14}, {3, 26},  {3, 28},   // Direction
    {4, 8},   {4, 9},   {4, 10}, {4, 11}, {4, 24},             // Comptabilité
    {5, 12},  {5, 13},                                         // Ressources humaines
    {6, 14},  {6, 18},  {6, 20}, {6, 21}, {6, 22},  {6, 23},   // Qualité
    {7, 14},  {7, 15},  {7, 16}, {7, 17}, {7, 18},             // Production
    {8, 18},  {8, 19},                                         // Méthodes
    {9, 14},  {9, 24},  {9, 25}, {9, 26}, {9, 27},             // Achats
    {10, 4},  {10, 5},  {10, 6}, {10, 7}, {10, 14}, {10, 26},  // Ventes
    {11, 29}, {11, 30},                                        // Informatique
    {12, 20},                                                  // Laboratoire
};

// 101 permissions, 104 group names and 105 descriptions, all as read for display; 114 a typed group
// name and 0 a description about to be stored, the other way round.
constexpr DisplayText kDisplayTexts[] = {
    {101, "User administration", "Administration des utilisateurs"},
    {101, "Session audit", "Audit des sessions"},
    {104, "Administrators", "Administrateurs"},
    {104, "Everyone", "Tout le monde"},
    {105, "Full control of the application", "Contrôle total de l'application"},
    {105, "All users", "Tous les utilisateurs"},
    {114, "Administrateurs", "Administrators"},
    {114, "Tout le monde", "Everyone"},
    {0, "Contrôle total de l'application", "Full control of the application"},
    {0, "Tous les utilisateurs", "All users"},
};

}  // namespace

std::span<const User> Users() {
  return kUsers;
}
std::span<const Group> Groups() {
  return kGroups;
}
std::span<const Permission> Permissions() {
  return kPermissions;
}
std::span<const Link> Memberships() {
  return kMemberships;
}
std::span<const Link> UserPermissions() {
  return kUserPermissions;
}
std::span<const Link> GroupPermissions() {
  return kGroupPermissions;
}
std::span<const DisplayText> DisplayTexts() {
  return kDisplayTexts;
}

}  // namespace server::sample
