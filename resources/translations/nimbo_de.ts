<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>FolderStates</name>
    <message>
        <source>does not exist</source>
        <translation>existiert nicht</translation>
    </message>
    <message>
        <source>is not a folder</source>
        <translation>ist kein Ordner</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Skipped by the scan: this folder %1</source>
        <translation>Beim Einlesen übersprungen: Dieser Ordner %1</translation>
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
        <translation>Über Nimbo</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Launch and organise your applications from one floating panel.</source>
        <translation>Starten und ordnen Sie Ihre Anwendungen von einem einzigen schwebenden Panel aus.</translation>
    </message>
    <message>
        <source>Built on:</source>
        <translation>Basiert auf:</translation>
    </message>
    <message>
        <source>© Halvorn Design. All rights reserved.</source>
        <translation>© Halvorn Design. Alle Rechte vorbehalten.</translation>
    </message>
    <message>
        <source>Qt %1 (running %2)</source>
        <translation>Qt %1 (zur Laufzeit %2)</translation>
    </message>
    <message>
        <source>GLib and GIO %1.%2.%3</source>
        <translation>GLib und GIO %1.%2.%3</translation>
    </message>
    <message>
        <source>libplist</source>
        <translation>libplist</translation>
    </message>
    <message>
        <source>X11 and XCB</source>
        <translation>X11 und XCB</translation>
    </message>
</context>
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
        <source>Don&apos;t Quit</source>
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
    <message>
        <source>This desktop does not let programs set a hot key of their own. To show and hide Nimbo with a key, add a shortcut in the desktop&apos;s keyboard settings that runs the command &quot;nimboctl toggle&quot;.</source>
        <translation>Diese Arbeitsumgebung erlaubt Programmen keine eigene Tastenkombination. Um Nimbo mit einer Taste ein- und auszublenden, legen Sie in den Tastatureinstellungen der Arbeitsumgebung ein Tastenkürzel an, das den Befehl &quot;nimboctl toggle&quot; ausführt.</translation>
    </message>
    <message>
        <source>Nimbo has no hot key on this desktop</source>
        <translation>Nimbo hat in dieser Arbeitsumgebung keine Tastenkombination</translation>
    </message>
</context>
<context>
    <name>HVExclusionSheet</name>
    <message>
        <source>Exclude applications whose names contain one of these words</source>
        <translation>Anwendungen ausschließen, deren Namen eines dieser Wörter enthalten</translation>
    </message>
    <message>
        <source>Exclude the applications kept in the desktop&apos;s dock or favourites</source>
        <translation>Die Anwendungen im Dock oder in den Favoriten der Arbeitsumgebung ausschließen</translation>
    </message>
    <message>
        <source>Automatic Exclusion</source>
        <translation>Automatisch ausschließen</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Words that mark applications to leave out, one per line:</source>
        <translation>Wörter, an denen auszulassende Anwendungen zu erkennen sind, eines pro Zeile:</translation>
    </message>
</context>
<context>
    <name>HVFeedbackSender</name>
    <message>
        <source>The feedback server %1 did not answer within %2 seconds.</source>
        <translation>Der Feedback-Server %1 hat nicht innerhalb von %2 Sekunden geantwortet.</translation>
    </message>
    <message>
        <source>The feedback address &quot;%1&quot; is not a web address.</source>
        <translation>Die Feedback-Adresse „%1“ ist keine Webadresse.</translation>
    </message>
    <message>
        <source>The feedback address %1 redirects too often, or to an address that is not safe.</source>
        <translation>Die Feedback-Adresse %1 leitet zu oft oder an eine unsichere Adresse weiter.</translation>
    </message>
    <message>
        <source>The feedback server %1 answered with HTTP status %2.</source>
        <translation>Der Feedback-Server %1 hat mit dem HTTP-Status %2 geantwortet.</translation>
    </message>
    <message>
        <source>The feedback server %1 refused the connection.</source>
        <translation>Der Feedback-Server %1 hat die Verbindung abgelehnt.</translation>
    </message>
    <message>
        <source>The feedback server %1 closed the connection without an answer.</source>
        <translation>Der Feedback-Server %1 hat die Verbindung ohne Antwort geschlossen.</translation>
    </message>
    <message>
        <source>Nimbo could not reach %1. Is this computer online?</source>
        <translation>Nimbo konnte %1 nicht erreichen. Ist dieser Computer mit dem Internet verbunden?</translation>
    </message>
    <message>
        <source>Nimbo could not send the report to %1: %2</source>
        <translation>Nimbo konnte den Bericht nicht an %1 senden: %2</translation>
    </message>
</context>
<context>
    <name>HVFeedbackWindow</name>
    <message>
        <source>Include system details</source>
        <translation>Systemangaben mitsenden</translation>
    </message>
    <message>
        <source>Send Feedback</source>
        <translation>Feedback senden</translation>
    </message>
    <message>
        <source>Bug report</source>
        <translation>Fehlerbericht</translation>
    </message>
    <message>
        <source>Crash report</source>
        <translation>Absturzbericht</translation>
    </message>
    <message>
        <source>Feature request</source>
        <translation>Funktionswunsch</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
    <message>
        <source>What happened, or what would you like Nimbo to do?</source>
        <translation>Was ist passiert, oder was soll Nimbo können?</translation>
    </message>
    <message>
        <source>Your e-mail address, if you would like an answer</source>
        <translation>Ihre E-Mail-Adresse, falls Sie eine Antwort wünschen</translation>
    </message>
    <message>
        <source>Nimbo and Qt versions, the desktop, X11 or Wayland, and how many applications each group holds</source>
        <translation>Versionen von Nimbo und Qt, die Arbeitsumgebung, X11 oder Wayland und wie viele Anwendungen jede Gruppe enthält</translation>
    </message>
    <message>
        <source>Kind:</source>
        <translation>Art:</translation>
    </message>
    <message>
        <source>Message:</source>
        <translation>Nachricht:</translation>
    </message>
    <message>
        <source>Reply to (optional):</source>
        <translation>Antwort an (optional):</translation>
    </message>
    <message>
        <source>What is sent:</source>
        <translation>Was gesendet wird:</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Bericht sichern…</translation>
    </message>
    <message>
        <source>Sending the report to %1…</source>
        <translation>Der Bericht wird an %1 gesendet…</translation>
    </message>
    <message>
        <source>Nimbo could not save the report to %1: %2</source>
        <translation>Nimbo konnte den Bericht nicht in %1 sichern: %2</translation>
    </message>
    <message>
        <source>The report was saved to %1.</source>
        <translation>Der Bericht wurde in %1 gesichert.</translation>
    </message>
    <message>
        <source>Sending stopped. The report is still here.</source>
        <translation>Senden abgebrochen. Der Bericht bleibt erhalten.</translation>
    </message>
    <message>
        <source>Save Report</source>
        <translation>Bericht sichern</translation>
    </message>
    <message>
        <source>JSON files (*.json)</source>
        <translation>JSON-Dateien (*.json)</translation>
    </message>
    <message>
        <source>Thank you! Your report was sent.</source>
        <translation>Vielen Dank! Ihr Bericht wurde gesendet.</translation>
    </message>
</context>
<context>
    <name>HVIconOverlayView</name>
    <message>
        <source>Version: %1</source>
        <translation>Version: %1</translation>
    </message>
</context>
<context>
    <name>HVIconView</name>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Cannot locate the app remover called &quot;%1&quot;.</source>
        <translation>Das Entfernungsprogramm „%1“ wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Please open %1&apos;s preferences and choose a different app remover.</source>
        <translation>Bitte öffnen Sie die Einstellungen von %1 und wählen Sie ein anderes Entfernungsprogramm.</translation>
    </message>
    <message>
        <source>Sending &quot;%1&quot; to the app remover &quot;%2&quot; was not successful.</source>
        <translation>„%1“ konnte nicht an das Entfernungsprogramm „%2“ übergeben werden.</translation>
    </message>
</context>
<context>
    <name>HVPanelButton</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>HVPreferences</name>
    <message>
        <source>%1 alone would stop that key from typing: choose Ctrl, Alt, Super or Shift with it</source>
        <translation>%1 allein würde diese Taste für die Texteingabe sperren: Wählen Sie dazu Strg, Alt, Super oder Umschalt</translation>
    </message>
    <message>
        <source>%1 is in use by another program</source>
        <translation>%1 wird bereits von einem anderen Programm verwendet</translation>
    </message>
    <message>
        <source>%1 switches to another console and never reaches a program: choose another combination</source>
        <translation>%1 wechselt zu einer anderen Konsole und erreicht kein Programm: Wählen Sie eine andere Kombination</translation>
    </message>
</context>
<context>
    <name>HVPreferencesWindow</name>
    <message>
        <source>Nimbo Preferences</source>
        <translation>Nimbo-Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Auslöser</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Colour Sorting Options</source>
        <translation>Optionen für die Farbsortierung</translation>
    </message>
    <message>
        <source>Share of coloured pixels for a colourful icon:</source>
        <translation>Anteil farbiger Pixel, ab dem ein Symbol als farbig gilt:</translation>
    </message>
    <message>
        <source>Hue the colour order starts at (degrees):</source>
        <translation>Farbton, mit dem die Farbreihenfolge beginnt (Grad):</translation>
    </message>
    <message>
        <source>Least saturation of a colour:</source>
        <translation>Mindestsättigung einer Farbe:</translation>
    </message>
    <message>
        <source>Least lightness of a colour:</source>
        <translation>Mindesthelligkeit einer Farbe:</translation>
    </message>
    <message>
        <source>Order grey icons by their strongest colour</source>
        <translation>Graue Symbole nach ihrer kräftigsten Farbe ordnen</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Choose a folder to scan</source>
        <translation>Ordner zum Einlesen wählen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Folder levels to look into:</source>
        <translation>Zu durchsuchende Ordnerebenen:</translation>
    </message>
    <message>
        <source>Nimbo looks for applications in these folders, in this order:</source>
        <translation>Nimbo sucht in diesen Ordnern nach Anwendungen, in dieser Reihenfolge:</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Icon size:</source>
        <translation>Symbolgröße:</translation>
    </message>
    <message>
        <source>The list shown last</source>
        <translation>Die zuletzt gezeigte Liste</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>Laufende Anwendungen</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Excluded applications</source>
        <translation>Ausgeschlossene Anwendungen</translation>
    </message>
    <message>
        <source>All applications</source>
        <translation>Alle Anwendungen</translation>
    </message>
    <message>
        <source>Favourites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Show at opening:</source>
        <translation>Beim Öffnen zeigen:</translation>
    </message>
    <message>
        <source>Panel opacity:</source>
        <translation>Deckkraft des Panels:</translation>
    </message>
    <message>
        <source>Colour Sorting Options…</source>
        <translation>Optionen für die Farbsortierung…</translation>
    </message>
    <message>
        <source>Colour order:</source>
        <translation>Farbreihenfolge:</translation>
    </message>
    <message>
        <source>Show the panel when Nimbo starts</source>
        <translation>Panel beim Start von Nimbo zeigen</translation>
    </message>
    <message>
        <source>Leave out empty cells</source>
        <translation>Leere Zellen auslassen</translation>
    </message>
    <message>
        <source>Start Nimbo at login</source>
        <translation>Nimbo bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Hot key:</source>
        <translation>Tastenkürzel:</translation>
    </message>
    <message>
        <source>Show Nimbo in the tray</source>
        <translation>Nimbo in der Statusleiste zeigen</translation>
    </message>
    <message>
        <source>Clicking the tray icon shows or hides the panel</source>
        <translation>Ein Klick auf das Symbol in der Statusleiste zeigt oder verbirgt das Panel</translation>
    </message>
    <message>
        <source>Show Nimbo in the taskbar</source>
        <translation>Nimbo in der Taskleiste zeigen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Top-left corner</source>
        <translation>Ecke oben links</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Linker Rand</translation>
    </message>
    <message>
        <source>Bottom-left corner</source>
        <translation>Ecke unten links</translation>
    </message>
    <message>
        <source>Bottom edge</source>
        <translation>Unterer Rand</translation>
    </message>
    <message>
        <source>Bottom-right corner</source>
        <translation>Ecke unten rechts</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Rechter Rand</translation>
    </message>
    <message>
        <source>Top-right corner</source>
        <translation>Ecke oben rechts</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>Oberer Rand</translation>
    </message>
    <message>
        <source>Cursor hot spot:</source>
        <translation>Aktive Bildschirmecke:</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
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
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen…</translation>
    </message>
    <message>
        <source>App remover:</source>
        <translation>Programm zum Entfernen:</translation>
    </message>
    <message>
        <source>Cursor hot spots need an X11 session: on Wayland no program may follow the pointer or place windows at the screen&apos;s edges.</source>
        <translation>Aktive Bildschirmecken brauchen eine X11-Sitzung: Unter Wayland darf kein Programm dem Zeiger folgen oder Fenster an den Bildschirmrändern platzieren.</translation>
    </message>
</context>
<context>
    <name>HVRemoverChooser</name>
    <message>
        <source>Choose the App Remover</source>
        <translation>Programm zum Entfernen auswählen</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>The application that Nimbo sends applications to for removal:</source>
        <translation>Die Anwendung, an die Nimbo Anwendungen zum Entfernen übergibt:</translation>
    </message>
    <message>
        <source>No name</source>
        <translation>Kein Name</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot accept an application file, so it probably can&apos;t delete one either.</source>
        <translation>„%1“ kann keine Anwendungsdatei annehmen und daher wohl auch keine entfernen.</translation>
    </message>
    <message>
        <source>Please choose a different app for removing application files.</source>
        <translation>Bitte wählen Sie eine andere Anwendung zum Entfernen von Anwendungsdateien.</translation>
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
        <translation>%1 Gesamt</translation>
    </message>
    <message>
        <source>%1 T</source>
        <translation>%1 G</translation>
    </message>
    <message>
        <source>T</source>
        <translation>G</translation>
    </message>
    <message>
        <source>%1 Included</source>
        <translation>%1 Einbezogen</translation>
    </message>
    <message>
        <source>%1 I</source>
        <translation>%1 E</translation>
    </message>
    <message>
        <source>I</source>
        <translation>E</translation>
    </message>
    <message>
        <source>%1 Excluded</source>
        <translation>%1 Ausgeschlossen</translation>
    </message>
    <message>
        <source>%1 E</source>
        <translation>%1 A</translation>
    </message>
    <message>
        <source>E</source>
        <translation>A</translation>
    </message>
    <message>
        <source>%1 Favorite</source>
        <translation>%1 Favoriten</translation>
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
        <translation>%1 Laufend</translation>
    </message>
    <message>
        <source>%1 R</source>
        <translation>%1 L</translation>
    </message>
    <message>
        <source>R</source>
        <translation>L</translation>
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
        <source>Automatic Exclusion…</source>
        <translation>Automatisch ausschließen…</translation>
    </message>
    <message>
        <source>Quit Nimbo</source>
        <translation>Nimbo beenden</translation>
    </message>
    <message>
        <source>Hide Nimbo</source>
        <translation>Nimbo ausblenden</translation>
    </message>
    <message>
        <source>About Nimbo</source>
        <translation>Über Nimbo</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Nach Aktualisierungen suchen...</translation>
    </message>
    <message>
        <source>Preferences…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Nimbo Home Page</source>
        <translation>Nimbo-Webseite</translation>
    </message>
    <message>
        <source>Welcome to Nimbo</source>
        <translation>Willkommen bei Nimbo</translation>
    </message>
    <message>
        <source>Nimbo User Guide</source>
        <translation>Nimbo-Benutzerhandbuch</translation>
    </message>
    <message>
        <source>Send Feedback…</source>
        <translation>Feedback senden…</translation>
    </message>
</context>
<context>
    <name>HVUpdatePrompt</name>
    <message>
        <source>Software Update</source>
        <translation>Softwareaktualisierung</translation>
    </message>
    <message>
        <source>Nimbo could not check for updates.</source>
        <translation>Nimbo konnte nicht nach Aktualisierungen suchen.</translation>
    </message>
    <message>
        <source>You&apos;re up to date!</source>
        <translation>Sie sind auf dem neuesten Stand!</translation>
    </message>
    <message>
        <source>Nimbo %1 is the newest version available.</source>
        <translation>Nimbo %1 ist die neueste verfügbare Version.</translation>
    </message>
    <message>
        <source>A new version of Nimbo is available!</source>
        <translation>Eine neue Version von Nimbo ist verfügbar!</translation>
    </message>
    <message>
        <source>Nimbo %1 is out; you have %2. Your distribution&apos;s package manager or the home page has it.</source>
        <translation>Nimbo %1 ist erschienen; Sie haben Version %2. Sie erhalten die neue Version über die Paketverwaltung Ihrer Distribution oder auf der Webseite.</translation>
    </message>
    <message>
        <source>Release Notes</source>
        <translation>Versionshinweise</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
</context>
<context>
    <name>HVWelcomeAssistant</name>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>PortalShortcut</name>
    <message>
        <source>Show or hide Nimbo</source>
        <translation>Nimbo zeigen oder ausblenden</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Not matching the typed text</source>
        <translation>Passt nicht zum eingegebenen Text</translation>
    </message>
    <message>
        <source>Hide Group</source>
        <translation>Gruppe ausblenden</translation>
    </message>
    <message>
        <source>Move to New Group</source>
        <translation>In neue Gruppe verschieben</translation>
    </message>
    <message>
        <source>Remove Favorite</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Include</source>
        <translation>Einbeziehen</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Add Favorite</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Add Favorite in New Group</source>
        <translation>Zu Favoriten in neuer Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>In der Dateiverwaltung zeigen</translation>
    </message>
    <message>
        <source>Send to %1</source>
        <translation>An %1 senden</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
</TS>
