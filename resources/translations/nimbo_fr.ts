<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>FolderStates</name>
    <message>
        <source>does not exist</source>
        <translation>n’existe pas</translation>
    </message>
    <message>
        <source>is not a folder</source>
        <translation>n’est pas un dossier</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>ne peut pas être lu</translation>
    </message>
    <message>
        <source>Skipped by the scan: this folder %1</source>
        <translation>Ignoré lors de l’analyse : ce dossier %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>HVAboutWindow</name>
    <message>
        <source>About Nimbo</source>
        <translation>À propos de Nimbo</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Launch and organise your applications from one floating panel.</source>
        <translation>Lancez et organisez vos applications depuis un seul panneau flottant.</translation>
    </message>
    <message>
        <source>Built on:</source>
        <translation>Basé sur :</translation>
    </message>
    <message>
        <source>© Halvorn Design. All rights reserved.</source>
        <translation>© Halvorn Design. Tous droits réservés.</translation>
    </message>
    <message>
        <source>Qt %1 (running %2)</source>
        <translation>Qt %1 (%2 à l’exécution)</translation>
    </message>
    <message>
        <source>GLib and GIO %1.%2.%3</source>
        <translation>GLib et GIO %1.%2.%3</translation>
    </message>
    <message>
        <source>libplist</source>
        <translation>libplist</translation>
    </message>
    <message>
        <source>X11 and XCB</source>
        <translation>X11 et XCB</translation>
    </message>
</context>
<context>
    <name>HVController</name>
    <message>
        <source>Are you sure you want to quit Nimbo?</source>
        <translation>Voulez-vous vraiment quitter Nimbo ?</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Don&apos;t Quit</source>
        <translation>Ne pas quitter</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>You have no access to Nimbo from the tray, the taskbar, a cursor hot spot or a hot key.</source>
        <translation>Vous n’avez plus accès à Nimbo ni par la zone de notification, ni par la barre des tâches, ni par un coin actif de l’écran, ni par un raccourci clavier.</translation>
    </message>
    <message>
        <source>You will only be able to re-open the window by double-clicking the application icon in the file manager.</source>
        <translation>Vous ne pourrez rouvrir la fenêtre qu’en double-cliquant sur l’icône de l’application dans le gestionnaire de fichiers.</translation>
    </message>
    <message>
        <source>You only have access to Nimbo using the following hot key:

%1</source>
        <translation>Vous n’avez accès à Nimbo que par ce raccourci clavier :

%1</translation>
    </message>
    <message>
        <source>You can also re-open the window by double-clicking the application icon in the file manager.</source>
        <translation>Vous pouvez aussi rouvrir la fenêtre en double-cliquant sur l’icône de l’application dans le gestionnaire de fichiers.</translation>
    </message>
    <message>
        <source>This desktop does not let programs set a hot key of their own. To show and hide Nimbo with a key, add a shortcut in the desktop&apos;s keyboard settings that runs the command &quot;nimboctl toggle&quot;.</source>
        <translation>Ce bureau ne permet pas aux programmes de définir leur propre raccourci clavier. Pour afficher et masquer Nimbo avec une touche, ajoutez dans les réglages clavier du bureau un raccourci qui lance la commande &quot;nimboctl toggle&quot;.</translation>
    </message>
    <message>
        <source>Nimbo has no hot key on this desktop</source>
        <translation>Nimbo n&apos;a pas de raccourci clavier sur ce bureau</translation>
    </message>
</context>
<context>
    <name>HVExclusionSheet</name>
    <message>
        <source>Exclude applications whose names contain one of these words</source>
        <translation>Exclure les applications dont le nom contient l&apos;un de ces mots</translation>
    </message>
    <message>
        <source>Exclude the applications kept in the desktop&apos;s dock or favourites</source>
        <translation>Exclure les applications gardées dans le dock ou les favoris du bureau</translation>
    </message>
    <message>
        <source>Automatic Exclusion</source>
        <translation>Exclusion automatique</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Exclure</translation>
    </message>
    <message>
        <source>Words that mark applications to leave out, one per line:</source>
        <translation>Mots qui désignent les applications à écarter, un par ligne :</translation>
    </message>
</context>
<context>
    <name>HVFeedbackSender</name>
    <message>
        <source>The feedback server %1 did not answer within %2 seconds.</source>
        <translation>Le serveur de commentaires %1 n’a pas répondu dans les %2 secondes.</translation>
    </message>
    <message>
        <source>The feedback address &quot;%1&quot; is not a web address.</source>
        <translation>L’adresse de commentaires « %1 » n’est pas une adresse web.</translation>
    </message>
    <message>
        <source>The feedback address %1 redirects too often, or to an address that is not safe.</source>
        <translation>L’adresse de commentaires %1 redirige trop souvent, ou vers une adresse qui n’est pas sûre.</translation>
    </message>
    <message>
        <source>The feedback server %1 answered with HTTP status %2.</source>
        <translation>Le serveur de commentaires %1 a répondu avec le statut HTTP %2.</translation>
    </message>
    <message>
        <source>The feedback server %1 refused the connection.</source>
        <translation>Le serveur de commentaires %1 a refusé la connexion.</translation>
    </message>
    <message>
        <source>The feedback server %1 closed the connection without an answer.</source>
        <translation>Le serveur de commentaires %1 a fermé la connexion sans répondre.</translation>
    </message>
    <message>
        <source>Nimbo could not reach %1. Is this computer online?</source>
        <translation>Nimbo n’a pas pu joindre %1. Cet ordinateur est-il connecté à Internet ?</translation>
    </message>
    <message>
        <source>Nimbo could not send the report to %1: %2</source>
        <translation>Nimbo n’a pas pu envoyer le rapport à %1 : %2</translation>
    </message>
</context>
<context>
    <name>HVFeedbackWindow</name>
    <message>
        <source>Include system details</source>
        <translation>Joindre les informations système</translation>
    </message>
    <message>
        <source>Send Feedback</source>
        <translation>Envoyer un commentaire</translation>
    </message>
    <message>
        <source>Bug report</source>
        <translation>Rapport de bogue</translation>
    </message>
    <message>
        <source>Crash report</source>
        <translation>Rapport de plantage</translation>
    </message>
    <message>
        <source>Feature request</source>
        <translation>Demande de fonctionnalité</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>What happened, or what would you like Nimbo to do?</source>
        <translation>Que s’est-il passé, ou que voudriez-vous que Nimbo fasse ?</translation>
    </message>
    <message>
        <source>Your e-mail address, if you would like an answer</source>
        <translation>Votre adresse e-mail, si vous souhaitez une réponse</translation>
    </message>
    <message>
        <source>Nimbo and Qt versions, the desktop, X11 or Wayland, and how many applications each group holds</source>
        <translation>Les versions de Nimbo et de Qt, le bureau, X11 ou Wayland, et le nombre d’applications de chaque groupe</translation>
    </message>
    <message>
        <source>Kind:</source>
        <translation>Type :</translation>
    </message>
    <message>
        <source>Message:</source>
        <translation>Message :</translation>
    </message>
    <message>
        <source>Reply to (optional):</source>
        <translation>Répondre à (facultatif) :</translation>
    </message>
    <message>
        <source>What is sent:</source>
        <translation>Ce qui est envoyé :</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Enregistrer le rapport…</translation>
    </message>
    <message>
        <source>Sending the report to %1…</source>
        <translation>Envoi du rapport à %1…</translation>
    </message>
    <message>
        <source>Nimbo could not save the report to %1: %2</source>
        <translation>Nimbo n’a pas pu enregistrer le rapport dans %1 : %2</translation>
    </message>
    <message>
        <source>The report was saved to %1.</source>
        <translation>Le rapport a été enregistré dans %1.</translation>
    </message>
    <message>
        <source>Sending stopped. The report is still here.</source>
        <translation>Envoi interrompu. Le rapport est toujours là.</translation>
    </message>
    <message>
        <source>Save Report</source>
        <translation>Enregistrer le rapport</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>Fichiers JSON (*.json)</translation>
    </message>
    <message>
        <source>Thank you! Your report was sent.</source>
        <translation>Merci ! Votre rapport a été envoyé.</translation>
    </message>
</context>
<context>
    <name>HVIconOverlayView</name>
    <message>
        <source>Version: %1</source>
        <translation>Version : %1</translation>
    </message>
</context>
<context>
    <name>HVIconView</name>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
    </message>
    <message>
        <source>Cannot locate the app remover called &quot;%1&quot;.</source>
        <translation>Le programme de désinstallation « %1 » est introuvable.</translation>
    </message>
    <message>
        <source>Please open %1&apos;s preferences and choose a different app remover.</source>
        <translation>Veuillez ouvrir les préférences de %1 et choisir un autre programme de désinstallation.</translation>
    </message>
    <message>
        <source>Sending &quot;%1&quot; to the app remover &quot;%2&quot; was not successful.</source>
        <translation>L’envoi de « %1 » au programme de désinstallation « %2 » a échoué.</translation>
    </message>
</context>
<context>
    <name>HVPanelButton</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
</context>
<context>
    <name>HVPreferences</name>
    <message>
        <source>%1 alone would stop that key from typing: choose Ctrl, Alt, Super or Shift with it</source>
        <translation>%1 seule empêcherait cette touche de servir à la saisie : ajoutez-y Ctrl, Alt, Super ou Maj</translation>
    </message>
    <message>
        <source>%1 is in use by another program</source>
        <translation>%1 est déjà utilisé par un autre programme</translation>
    </message>
    <message>
        <source>%1 switches to another console and never reaches a program: choose another combination</source>
        <translation>%1 bascule vers une autre console et n&apos;atteint aucun programme : choisissez une autre combinaison</translation>
    </message>
</context>
<context>
    <name>HVPreferencesWindow</name>
    <message>
        <source>Nimbo Preferences</source>
        <translation>Préférences de Nimbo</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Déclencheurs</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Colour Sorting Options</source>
        <translation>Options du tri par couleur</translation>
    </message>
    <message>
        <source>Share of coloured pixels for a colourful icon:</source>
        <translation>Part de pixels colorés pour qu’une icône compte comme colorée :</translation>
    </message>
    <message>
        <source>Hue the colour order starts at (degrees):</source>
        <translation>Teinte par laquelle commence l’ordre des couleurs (degrés) :</translation>
    </message>
    <message>
        <source>Least saturation of a colour:</source>
        <translation>Saturation minimale d’une couleur :</translation>
    </message>
    <message>
        <source>Least lightness of a colour:</source>
        <translation>Luminosité minimale d’une couleur :</translation>
    </message>
    <message>
        <source>Order grey icons by their strongest colour</source>
        <translation>Classer les icônes grises selon leur couleur la plus vive</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Choose a folder to scan</source>
        <translation>Choisir un dossier à analyser</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Folder levels to look into:</source>
        <translation>Niveaux de dossiers à explorer :</translation>
    </message>
    <message>
        <source>Nimbo looks for applications in these folders, in this order:</source>
        <translation>Nimbo cherche les applications dans ces dossiers, dans cet ordre :</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Icon size:</source>
        <translation>Taille des icônes :</translation>
    </message>
    <message>
        <source>The list shown last</source>
        <translation>La dernière liste affichée</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>Applications actives</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
    </message>
    <message>
        <source>Excluded applications</source>
        <translation>Applications exclues</translation>
    </message>
    <message>
        <source>All applications</source>
        <translation>Toutes les applications</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Show at opening:</source>
        <translation>Afficher à l’ouverture :</translation>
    </message>
    <message>
        <source>Panel opacity:</source>
        <translation>Opacité du panneau :</translation>
    </message>
    <message>
        <source>Colour Sorting Options…</source>
        <translation>Options du tri par couleur…</translation>
    </message>
    <message>
        <source>Colour order:</source>
        <translation>Ordre des couleurs :</translation>
    </message>
    <message>
        <source>Show the panel when Nimbo starts</source>
        <translation>Afficher le panneau au démarrage de Nimbo</translation>
    </message>
    <message>
        <source>Leave out empty cells</source>
        <translation>Omettre les cellules vides</translation>
    </message>
    <message>
        <source>Start Nimbo at login</source>
        <translation>Lancer Nimbo à l’ouverture de session</translation>
    </message>
    <message>
        <source>Hot key:</source>
        <translation>Raccourci clavier :</translation>
    </message>
    <message>
        <source>Show Nimbo in the tray</source>
        <translation>Afficher Nimbo dans la zone de notification</translation>
    </message>
    <message>
        <source>Clicking the tray icon shows or hides the panel</source>
        <translation>Un clic sur l’icône de la zone de notification affiche ou masque le panneau</translation>
    </message>
    <message>
        <source>Show Nimbo in the taskbar</source>
        <translation>Afficher Nimbo dans la barre des tâches</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Top-left corner</source>
        <translation>Coin supérieur gauche</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Bord gauche</translation>
    </message>
    <message>
        <source>Bottom-left corner</source>
        <translation>Coin inférieur gauche</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Bord inférieur</translation>
    </message>
    <message>
        <source>Bottom-right corner</source>
        <translation>Coin inférieur droit</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Bord droit</translation>
    </message>
    <message>
        <source>Top-right corner</source>
        <translation>Coin supérieur droit</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Bord supérieur</translation>
    </message>
    <message>
        <source>Cursor hot spot:</source>
        <translation>Coin actif de l’écran :</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>App remover:</source>
        <translation>Outil de suppression :</translation>
    </message>
    <message>
        <source>Cursor hot spots need an X11 session: on Wayland no program may follow the pointer or place windows at the screen&apos;s edges.</source>
        <translation>Les coins actifs de l&apos;écran nécessitent une session X11 : sous Wayland, aucun programme ne peut suivre le pointeur ni placer des fenêtres aux bords de l&apos;écran.</translation>
    </message>
</context>
<context>
    <name>HVRemoverChooser</name>
    <message>
        <source>Choose the App Remover</source>
        <translation>Choisir l&apos;outil de suppression</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Choisir</translation>
    </message>
    <message>
        <source>The application that Nimbo sends applications to for removal:</source>
        <translation>L&apos;application à laquelle Nimbo confie les applications à supprimer :</translation>
    </message>
    <message>
        <source>No name</source>
        <translation>Sans nom</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot accept an application file, so it probably can&apos;t delete one either.</source>
        <translation>« %1 » ne peut pas accepter un fichier d&apos;application, il ne peut donc probablement pas en supprimer un non plus.</translation>
    </message>
    <message>
        <source>Please choose a different app for removing application files.</source>
        <translation>Veuillez choisir une autre application pour supprimer les fichiers d&apos;application.</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>HVStatsControl</name>
    <message>
        <source>%1 Total</source>
        <translation>%1 au total</translation>
    </message>
    <message>
        <source>%1 T</source>
        <translation>%1 T</translation>
    </message>
    <message>
        <source>T</source>
        <translation>T</translation>
    </message>
    <message>
        <source>%1 Included</source>
        <translation>%1 incluses</translation>
    </message>
    <message>
        <source>%1 I</source>
        <translation>%1 I</translation>
    </message>
    <message>
        <source>I</source>
        <translation>I</translation>
    </message>
    <message>
        <source>%1 Excluded</source>
        <translation>%1 exclues</translation>
    </message>
    <message>
        <source>%1 E</source>
        <translation>%1 E</translation>
    </message>
    <message>
        <source>E</source>
        <translation>E</translation>
    </message>
    <message>
        <source>%1 Favorite</source>
        <translation>%1 favoris</translation>
    </message>
    <message>
        <source>%1 F</source>
        <translation>%1 F</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>%1 Running</source>
        <translation>%1 actives</translation>
    </message>
    <message>
        <source>%1 R</source>
        <translation>%1 A</translation>
    </message>
    <message>
        <source>R</source>
        <translation>A</translation>
    </message>
</context>
<context>
    <name>HVStatusMenu</name>
    <message>
        <source>Show Nimbo</source>
        <translation>Afficher Nimbo</translation>
    </message>
    <message>
        <source>Rescan Applications</source>
        <translation>Analyser à nouveau les applications</translation>
    </message>
    <message>
        <source>Automatic Exclusion…</source>
        <translation>Exclusion automatique…</translation>
    </message>
    <message>
        <source>Quit Nimbo</source>
        <translation>Quitter Nimbo</translation>
    </message>
    <message>
        <source>Hide Nimbo</source>
        <translation>Masquer Nimbo</translation>
    </message>
    <message>
        <source>About Nimbo</source>
        <translation>À propos de Nimbo</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Rechercher des mises à jour...</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Préférences…</translation>
    </message>
    <message>
        <source>Nimbo Home Page</source>
        <translation>Site web de Nimbo</translation>
    </message>
    <message>
        <source>Welcome to Nimbo</source>
        <translation>Bienvenue dans Nimbo</translation>
    </message>
    <message>
        <source>Nimbo User Guide</source>
        <translation>Guide de l’utilisateur de Nimbo</translation>
    </message>
    <message>
        <source>Send Feedback…</source>
        <translation>Envoyer un commentaire…</translation>
    </message>
</context>
<context>
    <name>HVUpdatePrompt</name>
    <message>
        <source>Software Update</source>
        <translation>Mise à jour du logiciel</translation>
    </message>
    <message>
        <source>Nimbo could not check for updates.</source>
        <translation>Nimbo n’a pas pu rechercher de mises à jour.</translation>
    </message>
    <message>
        <source>You&apos;re up to date!</source>
        <translation>Vous êtes à jour !</translation>
    </message>
    <message>
        <source>Nimbo %1 is the newest version available.</source>
        <translation>Nimbo %1 est la version la plus récente disponible.</translation>
    </message>
    <message>
        <source>A new version of Nimbo is available!</source>
        <translation>Une nouvelle version de Nimbo est disponible !</translation>
    </message>
    <message>
        <source>Nimbo %1 is out; you have %2. Your distribution&apos;s package manager or the home page has it.</source>
        <translation>Nimbo %1 est disponible ; vous avez la version %2. Vous la trouverez dans le gestionnaire de paquets de votre distribution ou sur le site web.</translation>
    </message>
    <message>
        <source>Release Notes</source>
        <translation>Notes de version</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Ignorer cette version</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Me le rappeler plus tard</translation>
    </message>
</context>
<context>
    <name>HVWelcomeAssistant</name>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>PortalShortcut</name>
    <message>
        <source>Show or hide Nimbo</source>
        <translation>Afficher ou masquer Nimbo</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Not matching the typed text</source>
        <translation>Ne correspond pas au texte saisi</translation>
    </message>
    <message>
        <source>Hide Group</source>
        <translation>Masquer le groupe</translation>
    </message>
    <message>
        <source>Move to New Group</source>
        <translation>Déplacer dans un nouveau groupe</translation>
    </message>
    <message>
        <source>Remove Favorite</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Include</source>
        <translation>Inclure</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Exclure</translation>
    </message>
    <message>
        <source>Add Favorite</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Add Favorite in New Group</source>
        <translation>Ajouter aux favoris dans un nouveau groupe</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>Afficher dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Send to %1</source>
        <translation>Envoyer à %1</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Masquer</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
</TS>
