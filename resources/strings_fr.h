// The program's string table, French. One list for everybody: the resource compiler makes the
// STRINGTABLE of uadmin.exe from it, the native tests their own table. Whoever includes this file
// defines UADMIN_STRING(id, text) before and drops it afterwards; hence no include guard.
//
// How to write a text:
// - UTF-8, composed letters (NFC), one literal a line, not cut in two. A quotation mark inside a
//   text is written \042, the one form that the resource compiler and C++ read alike.
// - "&" stands before a control's access key. Blanks at the end of a text matter: the program puts
//   something after it.
// - %1, %2, ... stand for what the program fills in, in that order of arguments; a translation may
//   move or repeat them. The comment in front of such a text says what they are.
// - 10000 + n is the standard text of run-time error n, 10000 that of every number without one.

// clang-format off

// Buttons and commands.
UADMIN_STRING(101, "OK")
UADMIN_STRING(102, "Annuler")
UADMIN_STRING(103, "&Quitter")
UADMIN_STRING(104, "A&ide")
UADMIN_STRING(105, "Ra&fraîchir")
UADMIN_STRING(106, "&A propos")
UADMIN_STRING(108, "&Editer...")
UADMIN_STRING(109, "&Supprimer...")
UADMIN_STRING(110, "&Nouveau...")
UADMIN_STRING(111, "&Copier")
UADMIN_STRING(112, "&Développer")
UADMIN_STRING(113, "Réd&uire")
UADMIN_STRING(114, ">")
UADMIN_STRING(115, ">>")
UADMIN_STRING(116, "<")
UADMIN_STRING(117, "<<")
UADMIN_STRING(119, "&Tous")
UADMIN_STRING(120, "&Aucun")
UADMIN_STRING(121, "To&us")
UADMIN_STRING(122, "Au&cun")
UADMIN_STRING(131, "&Affecter...")
UADMIN_STRING(133, "Supp&rimer...")

// Commands of the context menu alone, and the keys that give them.
UADMIN_STRING(141, "&Atteindre le compte")
UADMIN_STRING(142, "Re&venir")
UADMIN_STRING(143, "Dup&liquer...")
UADMIN_STRING(144, "&Journal...")
UADMIN_STRING(145, "&Enregistrer sous...")
UADMIN_STRING(149, "E&xporter les droits...")
UADMIN_STRING(161, "Entrée")
UADMIN_STRING(162, "Retour arrière")
UADMIN_STRING(163, "Ctrl+D")
UADMIN_STRING(164, "Ctrl+Q")
UADMIN_STRING(165, "Ctrl+M")
UADMIN_STRING(166, "Ctrl+K")
UADMIN_STRING(167, "Ctrl+J")
UADMIN_STRING(169, "Ctrl+E")

// Window titles. 201 is followed by the group's name, 206 by the kind of what is listed.
UADMIN_STRING(201, "Ajouter des Utilisateurs : ")
UADMIN_STRING(202, "Nouveau Groupe")
UADMIN_STRING(203, "Modifier le Groupe")
UADMIN_STRING(204, "Nouvel Utilisateur")
UADMIN_STRING(205, "Modifier l'Utilisateur")
UADMIN_STRING(206, "Liste des Choix : ")
UADMIN_STRING(250, "Admin Utilisateurs")

// Tabs, tree roots, folders, frames and labels.
UADMIN_STRING(301, "Utilisateurs")
UADMIN_STRING(302, "Groupes")
UADMIN_STRING(303, "Utilisateurs")
UADMIN_STRING(304, "Membre du Groupe")
UADMIN_STRING(305, "Droits Utilisateur")
UADMIN_STRING(306, "Ensemble des Droits")
UADMIN_STRING(307, "Permissions")
UADMIN_STRING(308, "Groupes")
UADMIN_STRING(309, "Membres")
UADMIN_STRING(310, "Droits du Groupe")
UADMIN_STRING(311, "Ensemble des Utilisateurs")
UADMIN_STRING(312, "Utilisateurs Sélectionnés")
UADMIN_STRING(313, "1 ) Saisissez les premières lettres du nom de l'utilisateur recherché.")
UADMIN_STRING(314, "2 ) Sélectionnez la personne souhaitée puis cliquez sur \042>\042.")
UADMIN_STRING(315, "3 ) Saisissez les premières lettres du nom de l'utilisateur recherché.")
UADMIN_STRING(316, "4 ) Sélectionnez la personne souhaitée puis cliquez sur \042<\042.")
UADMIN_STRING(317, "Groupe :")
UADMIN_STRING(318, "Description :")
UADMIN_STRING(319, "Utilisateur :")
UADMIN_STRING(320, "Nom Complet :")
UADMIN_STRING(321, "Mot de Passe :")
UADMIN_STRING(322, "Confirmation :")
UADMIN_STRING(323, "Cochez un élément puis cliquez sur OK. ")

// Names of the trees for screen readers; never drawn.
UADMIN_STRING(331, "Arborescence des utilisateurs")
UADMIN_STRING(332, "Arborescence des groupes")
// The arrows of the add-users dialog, 114 to 117, for screen readers.
UADMIN_STRING(333, "Ajouter l'utilisateur choisi au groupe")
UADMIN_STRING(334, "Ajouter tous les utilisateurs au groupe")
UADMIN_STRING(335, "Retirer l'utilisateur choisi du groupe")
UADMIN_STRING(336, "Retirer tous les utilisateurs du groupe")

// Status line. %1 of %2: rows read so far and in all.
UADMIN_STRING(402, "Lecture des utilisateurs : %1 sur %2")
UADMIN_STRING(403, "Lecture des groupes : %1 sur %2")
// %1 users, %2 groups, %3 permissions.
UADMIN_STRING(404, "%1 utilisateurs, %2 groupes, %3 permissions")
UADMIN_STRING(405, "Lecture interrompue : l'affichage est incomplet.")
// %1 of %2: accounts brought up to date so far and in all.
UADMIN_STRING(406, "Mise à jour des utilisateurs : %1 sur %2")
UADMIN_STRING(407, "Mise à jour des groupes : %1 sur %2")
UADMIN_STRING(408, "Lecture interrompue : rafraîchissez pour créer ou modifier.")

// What keeps the help from being shown. %1: the help file.
UADMIN_STRING(411, "La bibliothèque d'aide kvh_util est introuvable.")
UADMIN_STRING(412, "La fonction HtmlHelpForVB est absente de la bibliothèque d'aide kvh_util.")
UADMIN_STRING(413, "Le fichier d'aide %1 est introuvable.")
UADMIN_STRING(414, "Le fichier d'aide ne contient pas la rubrique demandée.")
UADMIN_STRING(415, "Windows n'affiche pas les pages du fichier d'aide %1, parce qu'il a été téléchargé ou se trouve sur un autre poste, et il n'a pas été possible d'en faire une copie. Placez le programme sur un disque de ce poste, puis débloquez ce fichier dans ses propriétés.")

// What keeps the session server from being used.
UADMIN_STRING(421, "Le serveur de session Vardex.Vardex.1 n'est pas enregistré sur ce poste. Installez le produit, ou enregistrez le serveur de référence livré avec le programme, puis recommencez.")
UADMIN_STRING(422, "Le serveur de session Vardex.Vardex.1 est enregistré, mais son fichier est introuvable ou ne peut pas être chargé. Réinstallez-le, puis recommencez.")
UADMIN_STRING(423, "Le serveur de session Vardex.Vardex.1 n'est enregistré que pour l'autre type de programmes (32 ou 64 bits). Utilisez l'édition d'Admin Utilisateurs qui lui correspond.")
UADMIN_STRING(424, "Le serveur de session Vardex.Vardex.1 ne répond plus. Quittez le programme, puis relancez-le depuis une nouvelle session.")
// %1: the member that was asked for.
UADMIN_STRING(425, "Le serveur de session Vardex.Vardex.1 ne connaît pas l'opération %1. Installez une version plus récente.")
// An elevated process does not see what is registered for the user alone.
UADMIN_STRING(426, "Le serveur de session Vardex.Vardex.1 n'est enregistré que pour votre compte, et un programme lancé en tant qu'administrateur ne le voit pas. Relancez Admin Utilisateurs sans élévation, ou faites enregistrer le serveur pour tous les utilisateurs du poste.")
// A server in another process that does not take a call.
UADMIN_STRING(427, "Le serveur de session Vardex.Vardex.1 est occupé et n'a pas accepté l'opération. Recommencez dans un instant.")
UADMIN_STRING(428, "Le serveur de session Vardex.Vardex.1 est occupé. Voulez-vous attendre encore ?")

// What a command has done. %1: the account.
UADMIN_STRING(431, "Utilisateur %1 créé")
UADMIN_STRING(432, "Utilisateur %1 modifié")
UADMIN_STRING(433, "Utilisateur %1 supprimé")
UADMIN_STRING(434, "Groupe %1 créé")
UADMIN_STRING(435, "Groupe %1 modifié")
UADMIN_STRING(436, "Groupe %1 supprimé")
// %1: how many, none or one in the first of two, several in the second. %2: the account.
UADMIN_STRING(437, "%1 groupe affecté à %2")
UADMIN_STRING(438, "%1 groupes affectés à %2")
UADMIN_STRING(439, "%1 permission affectée à %2")
UADMIN_STRING(440, "%1 permissions affectées à %2")
UADMIN_STRING(441, "%1 utilisateur affecté à %2")
UADMIN_STRING(442, "%1 utilisateurs affectés à %2")
// %1: what was taken away, %2: the account whose it was.
UADMIN_STRING(443, "%2 ne fait plus partie du groupe %1")
UADMIN_STRING(444, "%1 ne fait plus partie du groupe %2")
UADMIN_STRING(445, "Permission %1 retirée à %2")
// %1: the group.
UADMIN_STRING(446, "Le groupe %1 n'a plus de membres")

// Who the program works as. %1: the session server's text for the user.
UADMIN_STRING(447, "Session : %1")

// What a search has found, %1, and what there is to say of the selected node.
UADMIN_STRING(452, "%1 - %2")

// Why a command is off: what to select first. %1: the section of its button.
UADMIN_STRING(460, "Sélectionnez d'abord un utilisateur.")
UADMIN_STRING(461, "Sélectionnez d'abord un groupe.")
UADMIN_STRING(462, "Sélectionnez l'utilisateur lui-même ou son dossier \042%1\042.")
UADMIN_STRING(463, "Sélectionnez le groupe lui-même ou son dossier \042%1\042.")
UADMIN_STRING(464, "Sélectionnez d'abord un membre du groupe.")
UADMIN_STRING(465, "Cet ensemble se déduit des autres dossiers : retirez la permission sous \042%1\042, ou au groupe qui la donne.")
UADMIN_STRING(466, "Sélectionnez d'abord une permission.")
UADMIN_STRING(467, "Aucune ligne de la liste ne mène à un compte.")

// Where a permission comes from. %1: a group, or several joined by 506 and, before the last, 507.
UADMIN_STRING(501, "Accordée directement")
UADMIN_STRING(502, "Par le groupe %1")
UADMIN_STRING(503, "Par les groupes %1")
UADMIN_STRING(504, "Accordée directement et par le groupe %1")
UADMIN_STRING(505, "Accordée directement et par les groupes %1")
UADMIN_STRING(506, ", ")
UADMIN_STRING(507, " et ")
UADMIN_STRING(508, "Origine inconnue : cliquez sur Rafraîchir.")

// Lists to search in. %1: how many are shown, %2: of how many.
UADMIN_STRING(520, "%1 sur %2")
UADMIN_STRING(521, "Rechercher (Ctrl+F)")
// Ends a list of names that has been cut short. %1: how many are left out.
UADMIN_STRING(522, "%1 autres")
UADMIN_STRING(523, "La lecture a été interrompue : cette liste ne montre que ce qui a été lu. Rafraîchissez l'affichage pour la compléter.")
UADMIN_STRING(524, "&Fermer")
UADMIN_STRING(525, "Attein&dre")
UADMIN_STRING(526, "&Comparer")
// Column headings.
UADMIN_STRING(527, "Nom")
UADMIN_STRING(528, "Nom complet")
UADMIN_STRING(529, "Origine")
UADMIN_STRING(530, "En plus")
UADMIN_STRING(531, "Droits que le groupe ne donne pas")
UADMIN_STRING(532, "Permission")
UADMIN_STRING(533, "Détenue par")
// Commands of the context menu.
UADMIN_STRING(534, "&Qui détient ce droit...")
UADMIN_STRING(535, "&Membres...")
UADMIN_STRING(536, "Com&parer avec...")
// Titles of the lists, and the line above each. %1 and %2: what it is about.
UADMIN_STRING(537, "Qui détient ce droit")
UADMIN_STRING(538, "Permission : %1")
UADMIN_STRING(539, "Membres du groupe")
UADMIN_STRING(540, "Groupe : %1")
UADMIN_STRING(541, "Comparer deux utilisateurs")
UADMIN_STRING(542, "Avec quel utilisateur voulez-vous comparer %1 ?")
UADMIN_STRING(543, "%1 et %2")
// What is said where a list has no rows.
UADMIN_STRING(544, "Personne ne détient cette permission.")
UADMIN_STRING(545, "Ce groupe n'a pas de membres.")
UADMIN_STRING(546, "Il n'y a pas d'autre utilisateur.")
UADMIN_STRING(547, "Ni l'un ni l'autre n'a de permission.")
// Which of two users has a permission. %1: the one who has it.
UADMIN_STRING(548, "%1 seulement")
UADMIN_STRING(549, "Les deux")

// The export of who may do what: what its file is called, its title, the kinds of file.
UADMIN_STRING(550, "droits")
UADMIN_STRING(551, "Etat des droits")
UADMIN_STRING(552, "Tableau pour tableur (CSV)")
UADMIN_STRING(553, "Page à lire et à imprimer (HTML)")
// The name proposed for a file, without its extension. %1: what it is, %2: the day.
UADMIN_STRING(554, "%1-%2")
// %1: how many users are done, %2: of how many.
UADMIN_STRING(555, "Export des droits : %1 sur %2 (Echap pour arrêter)")
// %1: the file.
UADMIN_STRING(556, "Droits exportés dans %1")
UADMIN_STRING(557, "Export arrêté : aucun fichier n'a été écrit.")
// %1: a folder, in the last one a file.
UADMIN_STRING(558, "Impossible d'écrire dans le dossier %1 : il n'existe pas ou plus, ou vous n'avez pas le droit d'y écrire. Aucun fichier n'a été laissé.")
UADMIN_STRING(559, "Le disque du dossier %1 est plein ou n'est plus accessible. Aucun fichier n'a été laissé.")
UADMIN_STRING(560, "Le fichier %1 ne peut pas être remplacé : il est protégé ou ouvert dans un autre programme. Il est resté tel qu'il était.")
UADMIN_STRING(561, "Cet export est incomplet : une lecture de la base a échoué, et il ne contient que ce qui a été lu.")
// The headings of the table, and what stands in the column of origins.
UADMIN_STRING(562, "Utilisateur")
UADMIN_STRING(563, "Nom complet")
UADMIN_STRING(564, "Permission")
UADMIN_STRING(565, "Origine")
UADMIN_STRING(566, "Groupes")
UADMIN_STRING(567, "Directe")
UADMIN_STRING(568, "Par groupe")
UADMIN_STRING(569, "Directe et par groupe")
UADMIN_STRING(570, "Inconnue")
// The page.
UADMIN_STRING(571, "Date")
UADMIN_STRING(572, "Base de données")
// %1: the number of the session.
UADMIN_STRING(573, "celle de la session %1")
UADMIN_STRING(574, "Session de")
UADMIN_STRING(575, "Contenu")
UADMIN_STRING(576, "Utilisateurs : ce que chacun peut faire, et pourquoi")
UADMIN_STRING(577, "Groupes : leurs membres, et ce qu'ils donnent")
UADMIN_STRING(578, "Groupes :")
UADMIN_STRING(579, "Aucune permission.")

// What the journal says of a command that has not come to its end. %1: the account.
UADMIN_STRING(580, "Création de l'utilisateur %1")
UADMIN_STRING(581, "Modification de l'utilisateur %1")
UADMIN_STRING(582, "Suppression de l'utilisateur %1")
UADMIN_STRING(583, "Création du groupe %1")
UADMIN_STRING(584, "Modification du groupe %1")
UADMIN_STRING(585, "Suppression du groupe %1")
UADMIN_STRING(586, "Modification d'appartenances : %1")
UADMIN_STRING(587, "Modification de permissions : %1")
// %1: its folder.
UADMIN_STRING(588, "Le journal des modifications ne peut pas être écrit dans %1.")
UADMIN_STRING(589, "Vos modifications sont bien enregistrées ; elles n'y sont pas consignées.")

// The title of its window.
UADMIN_STRING(590, "Journal des modifications")

// The groups of the export. %1: how many.
UADMIN_STRING(591, "Membres (%1)")
UADMIN_STRING(592, "Permissions (%1)")

// The window of the journal. %1: its folder.
UADMIN_STRING(593, "Dossier : %1")
UADMIN_STRING(594, "Date et heure")
UADMIN_STRING(595, "Qui")
UADMIN_STRING(596, "Ce qui a été fait")
UADMIN_STRING(597, "Compte")
UADMIN_STRING(598, "Résultat")
// %1: the user of the session, %2: of Windows, %3: the machine.
UADMIN_STRING(599, "%1 (%2, poste %3)")

// Why a command is off: whom it would harm.
UADMIN_STRING(600, "Vous ne pouvez pas supprimer cet utilisateur : c'est l'administrateur principal.")
UADMIN_STRING(601, "Vous ne pouvez pas supprimer cet utilisateur : c'est celui de votre session.")
UADMIN_STRING(602, "Vous ne pouvez pas supprimer ce groupe : le système en a besoin.")
UADMIN_STRING(603, "Vous ne pouvez retirer personne de ce groupe : tous les utilisateurs en font partie.")
UADMIN_STRING(604, "Vous ne pouvez pas retirer l'administrateur principal de ce groupe.")
UADMIN_STRING(605, "Vous ne pouvez pas modifier les droits de ce groupe : il permet d'administrer les utilisateurs.")

// What the window of the journal says of an error, and below its list. %1: the number of the error, %2: its text.
UADMIN_STRING(620, "Erreur %1")
UADMIN_STRING(621, "Erreur %1 : %2")
UADMIN_STRING(622, "Aucune modification consignée.")
UADMIN_STRING(623, "Aucun journal n'est tenu : une stratégie l'a désactivé, ou votre compte n'a pas de dossier pour ses données locales.")
UADMIN_STRING(624, "Le journal n'a pas pu être lu en entier.")
// %1: how many.
UADMIN_STRING(625, "Lignes illisibles, laissées de côté : %1.")
UADMIN_STRING(626, "Les modifications plus anciennes ne sont pas affichées ; elles sont dans les fichiers du dossier.")

// What a list window has saved. %1: the name of the file.
UADMIN_STRING(631, "Enregistré : %1")
// What a page says of the list that it was saved from.
UADMIN_STRING(632, "Lignes")
UADMIN_STRING(633, "Recherche")

// Messages. A text that runs over two numbers is shown on two lines.
UADMIN_STRING(700, "Vos modifications ne seront pas prises en compte dans le système.")
UADMIN_STRING(701, "Souhaitez-vous poursuivre ?")
UADMIN_STRING(702, "Mot de passe différent du mot de passe confirmé.")
UADMIN_STRING(703, "Veuillez les ressaisir.")
UADMIN_STRING(704, "Me mot de passe doit comporter moins de 20 caractères.")
UADMIN_STRING(706, "Le mot de passe doit comporter plus de 6 caractères.")
UADMIN_STRING(707, "Spécifiez le nom du groupe.")
UADMIN_STRING(708, "Spécifiez le nom de l'utilisateur.")
UADMIN_STRING(710, "Sélectionnez le groupe à supprimer puis cliquez sur")
UADMIN_STRING(711, "le bouton Supprimer dans la section Membres du Groupe.")
UADMIN_STRING(712, "le bouton Supprimer dans la section Membre du Groupe.")
UADMIN_STRING(713, "Sélectionnez la permission à supprimer puis cliquez sur ")
UADMIN_STRING(714, "le bouton Supprimer dans la section Droits Utilisateur.")
UADMIN_STRING(715, "le bouton Supprimer dans la section Droits Groupe.")
UADMIN_STRING(720, "Souhaitez-vous supprimer ce groupe ?")
UADMIN_STRING(721, "Souhaitez-vous supprimer cet utilisateur ?")
UADMIN_STRING(730, "Souhaitez-vous supprimer cette permission de groupe ?")
UADMIN_STRING(731, "Souhaitez-vous supprimer ce membre ?")
UADMIN_STRING(732, "Souhaitez-vous supprimer ce membre du groupe ?")
UADMIN_STRING(733, "Souhaitez-vous supprimer cette permission utilisateur ?")
UADMIN_STRING(750, "Permission Admin Utilisateurs requise pour modifier,")
UADMIN_STRING(751, "créer ou supprimer une permission de groupe ou d'utilisateur.")
UADMIN_STRING(761, "Sélectionnez l'utilisateur à modifier puis cliquez sur le bouton Editer.")
UADMIN_STRING(762, "Sélectionnez l'utilisateur à supprimer puis cliquez sur le bouton Editer.")
UADMIN_STRING(763, "Sélectionnez le groupe à modifier puis cliquez sur le bouton Supprimer.")
UADMIN_STRING(764, "Sélectionnez le groupe à supprimer puis cliquez sur le bouton Supprimer.")
UADMIN_STRING(765, "Cet utilisateur existe déjà.")
UADMIN_STRING(766, "Ce groupe existe déjà.")
UADMIN_STRING(767, "Nom de groupe réservé.")
UADMIN_STRING(770, "Un autre administrateur a modifié ces données entre-temps.")
UADMIN_STRING(771, "L'affichage a été mis à jour ; vérifiez-le avant de poursuivre.")
// Followed by 701.
UADMIN_STRING(772, "Après cette modification, votre propre compte n'aura plus le droit d'administrer les utilisateurs :")
UADMIN_STRING(773, "l'accès à ce programme vous sera refusé au prochain démarrage.")
// What the system shows of a window that the end of the session waits for.
UADMIN_STRING(776, "Des modifications ne sont pas enregistrées.")

// Pieces of refusals: 1006 'name' 1007 and 1009 'name' 1008. The word order is meant so.
UADMIN_STRING(1006, "Impossible de supprimer")
UADMIN_STRING(1007, "l'utilisateur.")
UADMIN_STRING(1008, "le groupe.")
UADMIN_STRING(1009, "Impossible de supprimer l'utilisateur de")

// Standard texts of run-time errors.
UADMIN_STRING(10000, "Erreur définie par l'application ou par l'objet")
UADMIN_STRING(10005, "Appel de procédure ou argument incorrect")
UADMIN_STRING(10006, "Dépassement de capacité")
UADMIN_STRING(10007, "Mémoire insuffisante")
UADMIN_STRING(10009, "Indice en dehors des limites")
UADMIN_STRING(10013, "Incompatibilité de type")
UADMIN_STRING(10053, "Fichier introuvable")
UADMIN_STRING(10075, "Erreur d'accès au chemin ou au fichier")
UADMIN_STRING(10091, "Variable objet non définie")
UADMIN_STRING(10093, "Modèle de comparaison incorrect")
UADMIN_STRING(10424, "Objet requis")
UADMIN_STRING(10429, "Impossible de créer l'objet demandé")
UADMIN_STRING(10430, "Cette classe ne gère pas l'automation")
UADMIN_STRING(10438, "Propriété ou méthode non gérée par cet objet")
UADMIN_STRING(10440, "Erreur d'automation")
UADMIN_STRING(10453, "Fonction introuvable dans la bibliothèque")
UADMIN_STRING(10457, "Cette clé est déjà utilisée par un élément de la collection")
UADMIN_STRING(45601, "Élément introuvable")
UADMIN_STRING(45602, "Cette clé n'est pas unique dans la collection")
