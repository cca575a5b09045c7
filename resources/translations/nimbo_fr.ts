<?xml version='1.0' encoding='utf-8'?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
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
        <source>Don't Quit</source>
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
</context>
<context>
    <name>HVIconView</name>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
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
        <source>Quit Nimbo</source>
        <translation>Quitter Nimbo</translation>
    </message>
    <message>
        <source>Hide Nimbo</source>
        <translation>Masquer Nimbo</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Not matching the typed text</source>
        <translation>Ne correspond pas au texte saisi</translation>
    </message>
</context>
</TS>