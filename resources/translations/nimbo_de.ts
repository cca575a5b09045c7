<?xml version='1.0' encoding='utf-8'?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>HVController</name>
    <message>
        <source>Are you sure you want to quit Nimbo?</source>
        <translation>Möchten Sie Nimbo wirklich beenden?</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Don't Quit</source>
        <translation>Nicht beenden</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>You have no access to Nimbo from the tray, the taskbar, a cursor hot spot or a hot key.</source>
        <translation>Sie erreichen Nimbo weder über die Statusleiste noch über die Taskleiste, eine Bildschirmecke oder ein Tastenkürzel.</translation>
    </message>
    <message>
        <source>You will only be able to re-open the window by double-clicking the application icon in the file manager.</source>
        <translation>Sie können das Fenster dann nur noch mit einem Doppelklick auf das Programmsymbol in der Dateiverwaltung öffnen.</translation>
    </message>
    <message>
        <source>You only have access to Nimbo using the following hot key:

%1</source>
        <translation>Sie erreichen Nimbo nur noch mit diesem Tastenkürzel:

%1</translation>
    </message>
    <message>
        <source>You can also re-open the window by double-clicking the application icon in the file manager.</source>
        <translation>Sie können das Fenster auch mit einem Doppelklick auf das Programmsymbol in der Dateiverwaltung öffnen.</translation>
    </message>
</context>
<context>
    <name>HVIconView</name>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
</context>
<context>
    <name>HVStatusMenu</name>
    <message>
        <source>Show Nimbo</source>
        <translation>Nimbo zeigen</translation>
    </message>
    <message>
        <source>Rescan Applications</source>
        <translation>Anwendungen neu einlesen</translation>
    </message>
    <message>
        <source>Quit Nimbo</source>
        <translation>Nimbo beenden</translation>
    </message>
    <message>
        <source>Hide Nimbo</source>
        <translation>Nimbo ausblenden</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Not matching the typed text</source>
        <translation>Passt nicht zum eingegebenen Text</translation>
    </message>
</context>
</TS>