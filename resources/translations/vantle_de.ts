<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vantle X</source>
        <translation>Über Vantle X</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Vantle X&lt;/h3&gt;&lt;p&gt;Version %1 (%2)&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Vantle X&lt;/h3&gt;&lt;p&gt;Version %1 (%2)&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Erases the traces that web browsers and mail clients leave in your home folder: caches, history, cookies, site data, mail caches, junk and trash.</source>
        <translation>Löscht die Spuren, die Webbrowser und Mailprogramme in Ihrem persönlichen Ordner hinterlassen: Caches, Verlauf, Cookies, Website-Daten, Mail-Caches, Werbung und Papierkorb.</translation>
    </message>
</context>
<context>
    <name>ApplicationMenus</name>
    <message>
        <source>Vantle X &amp;Support</source>
        <translation>Vantle X-&amp;Support</translation>
    </message>
    <message>
        <source>&amp;Frequently Asked Questions</source>
        <translation>&amp;Häufige Fragen</translation>
    </message>
    <message>
        <source>Vantle X &amp;Downloads</source>
        <translation>Vantle X-&amp;Downloads</translation>
    </message>
    <message>
        <source>&amp;About Vantle X</source>
        <translation>&amp;Über Vantle X</translation>
    </message>
    <message>
        <source>S&amp;ettings…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>&amp;Quit Vantle X</source>
        <translation>Vantle X &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Shred</source>
        <translation>&amp;Schreddern</translation>
    </message>
    <message>
        <source>Shred and &amp;Log Out</source>
        <translation>Schreddern und &amp;abmelden</translation>
    </message>
    <message>
        <source>Shred and Shut &amp;Down</source>
        <translation>Schreddern und &amp;herunterfahren</translation>
    </message>
    <message>
        <source>Shred and &amp;Restart</source>
        <translation>Schreddern und &amp;neu starten</translation>
    </message>
    <message>
        <source>&amp;Vantle X</source>
        <translation>&amp;Vantle X</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>S&amp;how Vantle X</source>
        <translation>Vantle X &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Hide Vantle X</source>
        <translation>Vantle X ausblen&amp;den</translation>
    </message>
    <message>
        <source>Vantle X</source>
        <translation>Vantle X</translation>
    </message>
    <message>
        <source>Pre&amp;view…</source>
        <translation>&amp;Vorschau…</translation>
    </message>
</context>
<context>
    <name>ApplicationsPane</name>
    <message>
        <source>Erase and watch</source>
        <translation>Löschen und überwachen</translation>
    </message>
    <message>
        <source>Vantle X erases the traces of the ticked applications and, with the Tarnhold watch on, shreds when one of them quits. Mozilla and Netscape, and Safari and Shiira, share their files and are always ticked together.</source>
        <translation>Vantle X löscht die Spuren der angekreuzten Programme und schreddert, wenn die Tarnhold-Überwachung an ist, sobald eines von ihnen beendet wird. Mozilla und Netscape sowie Safari und Shiira teilen ihre Dateien und werden immer gemeinsam angekreuzt.</translation>
    </message>
</context>
<context>
    <name>Cli</name>
    <message>
        <source>enabled</source>
        <translation>aktiviert</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>deaktiviert</translation>
    </message>
    <message>
        <source>unknown application &quot;%1&quot; (one of: %2)</source>
        <translation>unbekanntes Programm „%1“ (eines von: %2)</translation>
    </message>
    <message>
        <source>Enabled: </source>
        <translation>Aktiviert: </translation>
    </message>
    <message>
        <source>Disabled: </source>
        <translation>Deaktiviert: </translation>
    </message>
    <message>
        <source>Show or change which applications are erased and watched</source>
        <translation>Zeigen oder ändern, welche Programme gelöscht und überwacht werden</translation>
    </message>
    <message>
        <source>The applications, enabled or not</source>
        <translation>Die Programme, aktiviert oder nicht</translation>
    </message>
    <message>
        <source>Enable an application (and its coupled one)</source>
        <translation>Ein Programm aktivieren (und das mit ihm gekoppelte)</translation>
    </message>
    <message>
        <source>Application name, as &apos;apps list&apos; shows it</source>
        <translation>Programmname, wie &apos;apps list&apos; ihn zeigt</translation>
    </message>
    <message>
        <source>Disable an application (and its coupled one)</source>
        <translation>Ein Programm deaktivieren (und das mit ihm gekoppelte)</translation>
    </message>
    <message>
        <source>Try &apos;vantle-cli --help&apos;.</source>
        <translation>Mehr dazu mit &apos;vantle-cli --help&apos;.</translation>
    </message>
    <message>
        <source>No custom processes.</source>
        <translation>Keine eigenen Prozesse.</translation>
    </message>
    <message>
        <source>  (folder kept)</source>
        <translation>  (Ordner bleibt)</translation>
    </message>
    <message>
        <source>  (folder)</source>
        <translation>  (Ordner)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is watched already</source>
        <translation>„%1“ wird schon überwacht</translation>
    </message>
    <message>
        <source>no custom process &quot;%1&quot;</source>
        <translation>kein eigener Prozess „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is listed for that process already</source>
        <translation>„%1“ ist für diesen Prozess schon eingetragen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not listed for that process</source>
        <translation>„%1“ ist für diesen Prozess nicht eingetragen</translation>
    </message>
    <message>
        <source>keep takes on or off, not &quot;%1&quot;</source>
        <translation>keep erwartet on oder off, nicht „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a folder listed for that process</source>
        <translation>„%1“ ist kein für diesen Prozess eingetragener Ordner</translation>
    </message>
    <message>
        <source>Show or change your own watched processes and their paths</source>
        <translation>Eigene überwachte Prozesse und ihre Pfade zeigen oder ändern</translation>
    </message>
    <message>
        <source>Every custom process with its paths</source>
        <translation>Jeder eigene Prozess mit seinen Pfaden</translation>
    </message>
    <message>
        <source>The application (its full path)</source>
        <translation>Das Programm (sein vollständiger Pfad)</translation>
    </message>
    <message>
        <source>A file or folder</source>
        <translation>Eine Datei oder ein Ordner</translation>
    </message>
    <message>
        <source>on or off</source>
        <translation>on oder off</translation>
    </message>
    <message>
        <source>refusing to erase &quot;%1&quot;: it is or holds the home folder</source>
        <translation>„%1“ wird nicht gelöscht: es ist oder enthält den persönlichen Ordner</translation>
    </message>
    <message>
        <source>Overwrite, rename and remove files and folders with the current settings</source>
        <translation>Dateien und Ordner mit den aktuellen Einstellungen überschreiben, umbenennen und entfernen</translation>
    </message>
    <message>
        <source>Files or folders to erase</source>
        <translation>Zu löschende Dateien oder Ordner</translation>
    </message>
    <message>
        <source>Show no progress</source>
        <translation>Keinen Fortschritt zeigen</translation>
    </message>
    <message>
        <source>Print the wall time spent overwriting and the whole erase&apos;s, with peak memory, on stderr</source>
        <translation>Die Zeit für das Überschreiben und für das ganze Löschen, mit Spitzenspeicher, auf stderr ausgeben</translation>
    </message>
    <message>
        <source>HTML5 storage erasing: %1</source>
        <translation>HTML5-Speicher löschen: %1</translation>
    </message>
    <message>
        <source>a kept domain cannot be empty</source>
        <translation>eine behaltene Domain darf nicht leer sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is kept already</source>
        <translation>„%1“ wird schon behalten</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not kept (see &apos;vantle-cli keep list&apos;)</source>
        <translation>„%1“ wird nicht behalten (siehe &apos;vantle-cli keep list&apos;)</translation>
    </message>
    <message>
        <source>Show or change the domains whose HTML5 storage is kept</source>
        <translation>Die Domains zeigen oder ändern, deren HTML5-Speicher behalten wird</translation>
    </message>
    <message>
        <source>Whether HTML5 storage is erased, and the kept domains</source>
        <translation>Ob HTML5-Speicher gelöscht wird, und die behaltenen Domains</translation>
    </message>
    <message>
        <source>Erase HTML5 storage, except the kept domains</source>
        <translation>HTML5-Speicher löschen, außer dem der behaltenen Domains</translation>
    </message>
    <message>
        <source>Erase no HTML5 storage at all</source>
        <translation>Gar keinen HTML5-Speicher löschen</translation>
    </message>
    <message>
        <source>Kept wherever a storage name contains it</source>
        <translation>Behalten, wo immer ein Speichername sie enthält</translation>
    </message>
    <message>
        <source>unknown command &apos;%1&apos;</source>
        <translation>unbekannter Befehl &apos;%1&apos;</translation>
    </message>
    <message>
        <source>unknown command &apos;%1&apos;; did you mean &apos;%2&apos;?</source>
        <translation>unbekannter Befehl &apos;%1&apos;; meinten Sie &apos;%2&apos;?</translation>
    </message>
    <message>
        <source>Vantle X erases the traces that web browsers and mail clients leave in your home folder:
caches, history, cookies, saved passwords, HTML5 storage, mail trash and junk.

Erasing cannot be undone: erased files are overwritten before they are removed, and no
tool can bring them back. Try &apos;shred --dry-run&apos; first to see what a run would erase.
</source>
        <translation>Vantle X löscht die Spuren, die Webbrowser und Mailprogramme in Ihrem persönlichen Ordner
hinterlassen: Caches, Verlauf, Cookies, gespeicherte Passwörter, HTML5-Speicher,
Mail-Papierkorb und Werbung.

Löschen lässt sich nicht rückgängig machen: gelöschte Dateien werden vor dem Entfernen
überschrieben, und kein Werkzeug holt sie zurück. Probieren Sie zuerst &apos;shred --dry-run&apos;,
um zu sehen, was ein Lauf löschen würde.
</translation>
    </message>
    <message>
        <source>Print this help and exit</source>
        <translation>Diese Hilfe ausgeben und beenden</translation>
    </message>
    <message>
        <source>Print the version and exit</source>
        <translation>Die Version ausgeben und beenden</translation>
    </message>
    <message>
        <source>Act as if DIR were the home folder</source>
        <translation>So tun, als wäre DIR der persönliche Ordner</translation>
    </message>
    <message>
        <source>--home: no such folder &quot;%1&quot;</source>
        <translation>--home: kein Ordner „%1“</translation>
    </message>
    <message>
        <source>no plug-in named &quot;%1&quot; (see &apos;vantle-cli plugins list&apos;)</source>
        <translation>kein Plug-in namens „%1“ (siehe &apos;vantle-cli plugins list&apos;)</translation>
    </message>
    <message>
        <source>, default</source>
        <translation>, Standard</translation>
    </message>
    <message>
        <source>a plug-in needs a name</source>
        <translation>ein Plug-in braucht einen Namen</translation>
    </message>
    <message>
        <source>there is a plug-in named &quot;%1&quot; already</source>
        <translation>es gibt schon ein Plug-in namens „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; takes no paths</source>
        <translation>„%1“ nimmt keine Pfade</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a default plug-in: there is nothing to restore</source>
        <translation>„%1“ ist kein Standard-Plug-in: es gibt nichts wiederherzustellen</translation>
    </message>
    <message>
        <source>Show or change the plug-in folders a run erases</source>
        <translation>Die Plug-in-Ordner zeigen oder ändern, die ein Lauf löscht</translation>
    </message>
    <message>
        <source>The plug-ins, enabled or not, with their paths</source>
        <translation>Die Plug-ins, aktiviert oder nicht, mit ihren Pfaden</translation>
    </message>
    <message>
        <source>Plug-in name</source>
        <translation>Name des Plug-ins</translation>
    </message>
    <message>
        <source>File or folder</source>
        <translation>Datei oder Ordner</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>unknown setting &quot;%1&quot; (see &apos;vantle-cli prefs list&apos;)</source>
        <translation>unbekannte Einstellung „%1“ (siehe &apos;vantle-cli prefs list&apos;)</translation>
    </message>
    <message>
        <source>factory</source>
        <translation>Werkseinstellung</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>%1 takes YES or NO, not &quot;%2&quot;</source>
        <translation>%1 erwartet YES oder NO, nicht „%2“</translation>
    </message>
    <message>
        <source>%1 takes %2, not &quot;%3&quot;</source>
        <translation>%1 erwartet %2, nicht „%3“</translation>
    </message>
    <message>
        <source>Show or change the settings</source>
        <translation>Die Einstellungen zeigen oder ändern</translation>
    </message>
    <message>
        <source>Every setting, its value, and whether it is the factory value</source>
        <translation>Jede Einstellung, ihr Wert und ob es die Werkseinstellung ist</translation>
    </message>
    <message>
        <source>Print the value of one setting</source>
        <translation>Den Wert einer Einstellung ausgeben</translation>
    </message>
    <message>
        <source>Setting name</source>
        <translation>Name der Einstellung</translation>
    </message>
    <message>
        <source>Change one setting (booleans: YES/NO/true/false/1/0)</source>
        <translation>Eine Einstellung ändern (Wahrheitswerte: YES/NO/true/false/1/0)</translation>
    </message>
    <message>
        <source>New value</source>
        <translation>Neuer Wert</translation>
    </message>
    <message>
        <source>Put every setting back to its factory value</source>
        <translation>Jede Einstellung auf ihre Werkseinstellung zurücksetzen</translation>
    </message>
    <message>
        <source>    no profiles</source>
        <translation>    keine Profile</translation>
    </message>
    <message>
        <source>no profile &quot;%1&quot; in %2</source>
        <translation>kein Profil „%1“ in %2</translation>
    </message>
    <message>
        <source>Show or change which browser and mail profiles are erased</source>
        <translation>Zeigen oder ändern, welche Browser- und Mailprofile gelöscht werden</translation>
    </message>
    <message>
        <source>Every profile found, selected or not</source>
        <translation>Jedes gefundene Profil, ausgewählt oder nicht</translation>
    </message>
    <message>
        <source>Erase the traces of every enabled application that is not running</source>
        <translation>Die Spuren jedes aktivierten Programms löschen, das nicht läuft</translation>
    </message>
    <message>
        <source>Answer the confirmation with OK</source>
        <translation>Die Rückfrage mit OK beantworten</translation>
    </message>
    <message>
        <source>Quit the browsers first, log out afterwards</source>
        <translation>Zuerst die Browser beenden, danach abmelden</translation>
    </message>
    <message>
        <source>Quit the browsers first, shut down afterwards</source>
        <translation>Zuerst die Browser beenden, danach herunterfahren</translation>
    </message>
    <message>
        <source>Quit the browsers first, restart afterwards</source>
        <translation>Zuerst die Browser beenden, danach neu starten</translation>
    </message>
    <message>
        <source>Print each stage&apos;s wall time and peak memory (finding, shredding) on the standard error</source>
        <translation>Zeit und Spitzenspeicher jeder Phase (Suchen, Schreddern) auf der Standardfehlerausgabe ausgeben</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>not running</source>
        <translation>läuft nicht</translation>
    </message>
    <message>
        <source>not watched</source>
        <translation>nicht überwacht</translation>
    </message>
    <message>
        <source>No terminal to answer on: Cancel.
</source>
        <translation>Kein Terminal für eine Antwort: Abbrechen.
</translation>
    </message>
    <message>
        <source>Shred?</source>
        <translation>Schreddern?</translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation>Fortfahren?</translation>
    </message>
    <message>
        <source>--interval takes a number of seconds from above 0 to 3600</source>
        <translation>--interval erwartet eine Zahl von Sekunden über 0 bis 3600</translation>
    </message>
    <message>
        <source>the Tarnhold watch is off (vantle-cli prefs set Tarnhold YES turns it on)</source>
        <translation>die Tarnhold-Überwachung ist aus (vantle-cli prefs set Tarnhold YES schaltet sie ein)</translation>
    </message>
    <message>
        <source>Run the Tarnhold watch: erase when a watched application quits</source>
        <translation>Die Tarnhold-Überwachung ausführen: löschen, wenn ein überwachtes Programm beendet wird</translation>
    </message>
    <message>
        <source>Answer the confirmation of each run with OK</source>
        <translation>Die Rückfrage jedes Laufs mit OK beantworten</translation>
    </message>
    <message>
        <source>Show every application&apos;s state as it changes</source>
        <translation>Den Zustand jedes Programms zeigen, wenn er sich ändert</translation>
    </message>
    <message>
        <source>Seconds between polls (default 10; for tests and demos)</source>
        <translation>Sekunden zwischen zwei Abfragen (Standard 10; für Tests und Vorführungen)</translation>
    </message>
    <message>
        <source>When another run is erasing in this home, wait for it to finish instead of giving up</source>
        <translation>Wenn ein anderer Lauf in diesem persönlichen Ordner löscht, auf sein Ende warten, statt aufzugeben</translation>
    </message>
    <message>
        <source>another Vantle X process</source>
        <translation>ein anderer Vantle-X-Prozess</translation>
    </message>
    <message>
        <source>%1 (process %2)</source>
        <translation>%1 (Prozess %2)</translation>
    </message>
    <message>
        <source>%1 is erasing in this home; waiting for it to finish</source>
        <translation>%1 löscht in diesem persönlichen Ordner; warte auf das Ende</translation>
    </message>
    <message>
        <source>%1 is erasing in this home; nothing was changed. Run again when it has finished, or add --wait to wait for it.</source>
        <translation>%1 löscht in diesem persönlichen Ordner; nichts wurde geändert. Starten Sie den Lauf erneut, wenn er fertig ist, oder geben Sie --wait an, um auf ihn zu warten.</translation>
    </message>
    <message>
        <source>the settings file could not be read (%1).</source>
        <translation>die Einstellungsdatei konnte nicht gelesen werden (%1).</translation>
    </message>
    <message>
        <source>the settings file could not be read (%1); it is kept as %2.</source>
        <translation>die Einstellungsdatei konnte nicht gelesen werden (%1); sie ist als %2 aufbewahrt.</translation>
    </message>
    <message>
        <source>Factory settings are in use and nothing is saved until &apos;vantle-cli prefs reset&apos; confirms them or the repaired file is put back in its place.</source>
        <translation>Es gelten die Werkseinstellungen, und nichts wird gespeichert, bis &apos;vantle-cli prefs reset&apos; sie bestätigt oder die reparierte Datei wieder an ihrem Platz liegt.</translation>
    </message>
    <message>
        <source>nothing was erased: shred and watch wait for the factory settings to be confirmed or the settings file to be repaired.</source>
        <translation>nichts wurde gelöscht: shred und watch warten, bis die Werkseinstellungen bestätigt sind oder die Einstellungsdatei repariert ist.</translation>
    </message>
    <message>
        <source>vantle-cli: HOME is not set; working in %1 as the home folder
</source>
        <translation>vantle-cli: HOME ist nicht gesetzt; %1 dient als persönlicher Ordner
</translation>
    </message>
    <message>
        <source>erase</source>
        <translation>löschen</translation>
    </message>
    <message>
        <source>rewrite</source>
        <translation>neu schreiben</translation>
    </message>
    <message>
        <source>Still finishing the current item: it is never left half-erased.</source>
        <translation>Der aktuelle Eintrag wird noch fertig gelöscht: Er wird nie halb gelöscht zurückgelassen.</translation>
    </message>
    <message>
        <source>Stopping after the current item; the others stay as they are.</source>
        <translation>Halte nach dem aktuellen Eintrag an; die übrigen bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Stopped before anything was erased.</source>
        <translation>Angehalten, bevor etwas gelöscht wurde.</translation>
    </message>
    <message>
        <source>Show what would be erased and rewritten, with sizes, and change nothing on disk</source>
        <translation>Zeigen, was gelöscht und neu geschrieben würde, mit Größen, und nichts auf der Platte ändern</translation>
    </message>
    <message>
        <source>With --dry-run: every Shred and Skip line first</source>
        <translation>Mit --dry-run: zuerst jede Shred- und Skip-Zeile</translation>
    </message>
    <message>
        <source>With --dry-run: the plan as JSON</source>
        <translation>Mit --dry-run: der Plan als JSON</translation>
    </message>
    <message>
        <source>Show no progress line</source>
        <translation>Keine Fortschrittszeile zeigen</translation>
    </message>
    <message>
        <source>Finding items that need shredding…</source>
        <translation>Suche, was geschreddert werden muss…</translation>
    </message>
    <message>
        <source>vantle-cli: 1 item could not be erased as asked</source>
        <translation>vantle-cli: 1 Eintrag konnte nicht wie verlangt gelöscht werden</translation>
    </message>
    <message>
        <source>vantle-cli: %1 items could not be erased as asked</source>
        <translation>vantle-cli: %1 Einträge konnten nicht wie verlangt gelöscht werden</translation>
    </message>
    <message>
        <source> (first: %1)</source>
        <translation> (zuerst: %1)</translation>
    </message>
    <message>
        <source>Examples:
  vantle-cli shred --dry-run          list what a run would erase, change nothing
  vantle-cli shred --yes              erase without asking
  vantle-cli prefs set ShredHistory YES
                                      erase the browsing history too
  vantle-cli keep add example.org     keep that site&apos;s HTML5 storage
  vantle-cli erase ~/Downloads/old.pdf
                                      overwrite and remove one file
  vantle-cli apps list --home /mnt/mac/Users/me
                                      work on another home folder

Exit status:
  0  the command did what it was asked
  1  the run was cancelled, or a path given to erase does not exist
  2  the command line was refused (unknown command, setting or name, a value of
     the wrong kind); nothing was changed
  3  another run was erasing in the same home (its program and process are named on
     the standard error); nothing was changed. shred and erase wait for it with --wait
  4  some items could not be erased as asked: left in place (a folder that could not
     be emptied), not begun (a stopped run) or removed without their contents
     overwritten; their count is on the standard error, the reasons in the log
  5  the settings file is damaged: it was kept aside and shred and watch erase nothing
     until &apos;prefs reset&apos; confirms the factory settings or the file is repaired

Files:
  ~/.config/com.orvick.vantle.plist     the settings, shared with the desktop application
  ~/.config/com.orvick.vantle.lock      held by the run that is erasing, and names it
  ~/Library/Logs/Vantle X Log.txt       the activity log of the last run, when it is on
  /usr/share/vantle/                    resources: the SQLite shell, empty databases

vantle-cli never creates a login item; the desktop application vantle(1) starts the
watch at login while the watch is on.</source>
        <translation>Beispiele:
  vantle-cli shred --dry-run          zeigen, was ein Lauf löschen würde, nichts ändern
  vantle-cli shred --yes              ohne Rückfrage löschen
  vantle-cli prefs set ShredHistory YES
                                      auch den Browserverlauf löschen
  vantle-cli keep add example.org     den HTML5-Speicher dieser Website behalten
  vantle-cli erase ~/Downloads/old.pdf
                                      eine Datei überschreiben und entfernen
  vantle-cli apps list --home /mnt/mac/Users/me
                                      mit einem anderen persönlichen Ordner arbeiten

Rückgabewert:
  0  der Befehl hat getan, was verlangt war
  1  der Lauf wurde abgebrochen, oder ein zu löschender Pfad existiert nicht
  2  die Befehlszeile wurde abgelehnt (unbekannter Befehl, unbekannte Einstellung
     oder unbekannter Name, ein Wert der falschen Art); nichts wurde geändert
  3  ein anderer Lauf löschte im selben persönlichen Ordner (Programm und Prozess
     nennt die Standardfehlerausgabe); nichts wurde geändert. shred und erase warten
     mit --wait auf ihn
  4  einiges konnte nicht wie verlangt gelöscht werden: es blieb liegen (ein Ordner, der
     sich nicht leeren ließ), wurde nicht begonnen (ein angehaltener Lauf) oder wurde
     entfernt, ohne dass sein Inhalt überschrieben wurde; die Anzahl nennt die
     Standardfehlerausgabe, die Gründe das Protokoll
  5  die Einstellungsdatei ist beschädigt: sie wurde beiseitegelegt, und shred und watch
     löschen nichts, bis &apos;prefs reset&apos; die Werkseinstellungen bestätigt oder die Datei
     repariert ist

Dateien:
  ~/.config/com.orvick.vantle.plist     die Einstellungen, geteilt mit dem Desktop-Programm
  ~/.config/com.orvick.vantle.lock      gehalten vom Lauf, der gerade löscht, und nennt ihn
  ~/Library/Logs/Vantle X Log.txt       das Protokoll des letzten Laufs, wenn es an ist
  /usr/share/vantle/                    Ressourcen: die SQLite-Shell, leere Datenbanken

vantle-cli legt nie einen Anmeldeeintrag an; das Desktop-Programm vantle(1) startet die
Überwachung bei der Anmeldung, solange sie an ist.</translation>
    </message>
    <message>
        <source>unknown application &quot;%1&quot; (mozilla, firefox, thunderbird, postbox, flock, seamonkey, chrome, brave, vivaldi, edge or opera)</source>
        <translation>unbekanntes Programm „%1“ (mozilla, firefox, thunderbird, postbox, flock, seamonkey, chrome, brave, vivaldi, edge oder opera)</translation>
    </message>
    <message>
        <source>mozilla, firefox, thunderbird, postbox, flock, seamonkey, chrome, brave, vivaldi, edge or opera</source>
        <translation>mozilla, firefox, thunderbird, postbox, flock, seamonkey, chrome, brave, vivaldi, edge oder opera</translation>
    </message>
    <message>
        <source>Profile folder name, the name after its dot, or its whole path</source>
        <translation>Name des Profilordners, der Name nach seinem Punkt oder sein ganzer Pfad</translation>
    </message>
</context>
<context>
    <name>Controller</name>
    <message>
        <source>Not enabled. Use preferences to enable...</source>
        <translation>Nicht aktiviert. In den Einstellungen einschalten...</translation>
    </message>
    <message>
        <source>Enabled and waiting for the first timer event to occur...</source>
        <translation>Aktiviert, wartet auf die erste Abfrage...</translation>
    </message>
    <message>
        <source>A supported browser or email application is running...</source>
        <translation>Ein unterstützter Browser oder ein Mailprogramm läuft...</translation>
    </message>
    <message>
        <source>All supported browser or email application have quit...</source>
        <translation>Alle unterstützten Browser und Mailprogramme sind beendet...</translation>
    </message>
    <message>
        <source>No supported applications are running...</source>
        <translation>Keine unterstützten Programme laufen...</translation>
    </message>
    <message>
        <source>Finding items that need shredding</source>
        <translation>Suche, was geschreddert werden muss</translation>
    </message>
    <message>
        <source>Vantle Confirmation</source>
        <translation>Vantle-Bestätigung</translation>
    </message>
    <message>
        <source>Vantle Quit Browsers</source>
        <translation>Vantle: Browser beenden</translation>
    </message>
    <message>
        <source>Browser Cache</source>
        <translation>Browser-Cache</translation>
    </message>
    <message>
        <source>Browser History</source>
        <translation>Browserverlauf</translation>
    </message>
    <message>
        <source>Download Cache</source>
        <translation>Download-Cache</translation>
    </message>
    <message>
        <source>Browser Icons</source>
        <translation>Browsersymbole</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookies</translation>
    </message>
    <message>
        <source>Mail Cache</source>
        <translation>Mail-Cache</translation>
    </message>
    <message>
        <source>Apple Mail Junk</source>
        <translation>Apple Mail-Werbung</translation>
    </message>
    <message>
        <source>Mail Trash</source>
        <translation>Mail-Papierkorb</translation>
    </message>
    <message>
        <source>Are you sure you want to shred these items: %1 ?</source>
        <translation>Möchten Sie diese Dinge wirklich schreddern: %1?</translation>
    </message>
    <message>
        <source>%1 Email or Browser Applications did not quit.  Please quit them and click OK to continue.  If you continue without quitting those applicaitons some items will not be shredded.</source>
        <translation>%1 Mail- oder Browserprogramme wurden nicht beendet.  Bitte beenden Sie sie und klicken Sie auf OK, um fortzufahren.  Wenn Sie fortfahren, ohne diese Programme zu beenden, werden einige Dinge nicht geschreddert.</translation>
    </message>
</context>
<context>
    <name>CustomProcessesPane</name>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Applications to watch</source>
        <translation>Zu überwachende Programme</translation>
    </message>
    <message>
        <source>Keep the folder: re-create it empty after shredding</source>
        <translation>Ordner behalten: nach dem Schreddern leer neu anlegen</translation>
    </message>
    <message>
        <source>Erased when the selected application quits</source>
        <translation>Gelöscht, wenn das ausgewählte Programm beendet wird</translation>
    </message>
    <message>
        <source>The Tarnhold watch shreds these files and folders when the application quits.</source>
        <translation>Die Tarnhold-Überwachung schreddert diese Dateien und Ordner, wenn das Programm beendet wird.</translation>
    </message>
    <message>
        <source>Select application to monitor</source>
        <translation>Zu überwachendes Programm auswählen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Please select an application to monitor.</source>
        <translation>Bitte wählen Sie ein Programm, das überwacht werden soll.</translation>
    </message>
    <message>
        <source>Select item to shred</source>
        <translation>Zu schreddernde Datei auswählen</translation>
    </message>
    <message>
        <source>Please select an item to shred.</source>
        <translation>Bitte wählen Sie aus, was geschreddert werden soll.</translation>
    </message>
</context>
<context>
    <name>DesktopApplication</name>
    <message>
        <source>Waiting for %1 to finish erasing</source>
        <translation>Warte, bis %1 mit dem Löschen fertig ist</translation>
    </message>
    <message>
        <source>another Vantle X process</source>
        <translation>ein anderer Vantle-X-Prozess</translation>
    </message>
    <message>
        <source>%1 (process %2)</source>
        <translation>%1 (Prozess %2)</translation>
    </message>
    <message>
        <source>Vantle</source>
        <translation>Vantle</translation>
    </message>
    <message>
        <source>%1 is erasing in this home folder. Nothing was changed: shred again when it has finished.</source>
        <translation>%1 löscht in diesem persönlichen Ordner. Nichts wurde geändert: Schreddern Sie erneut, wenn er fertig ist.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source> It is kept as %1.</source>
        <translation> Sie ist als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The settings file could not be read (%1).%2 Vantle erases nothing until you choose the factory settings or put the repaired file back in its place.</source>
        <translation>Die Einstellungsdatei konnte nicht gelesen werden (%1).%2 Vantle löscht nichts, bis Sie die Werkseinstellungen wählen oder die reparierte Datei wieder an ihren Platz legen.</translation>
    </message>
    <message>
        <source>Use Factory Settings</source>
        <translation>Werkseinstellungen verwenden</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Vantle X</source>
        <translation>Vantle X</translation>
    </message>
</context>
<context>
    <name>ErasingPane</name>
    <message>
        <source>Browser caches</source>
        <translation>Browser-Caches</translation>
    </message>
    <message>
        <source>Browsing history</source>
        <translation>Browserverlauf</translation>
    </message>
    <message>
        <source>Top Sites and speed dial pages with the history</source>
        <translation>Top Sites und Schnellwahlseiten mit dem Verlauf</translation>
    </message>
    <message>
        <source>Download lists and download caches</source>
        <translation>Downloadlisten und Download-Caches</translation>
    </message>
    <message>
        <source>Site icons and page thumbnails</source>
        <translation>Website-Symbole und Seitenvorschauen</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookies</translation>
    </message>
    <message>
        <source>Saved passwords</source>
        <translation>Gespeicherte Passwörter</translation>
    </message>
    <message>
        <source>Random (1–4 passes)</source>
        <translation>Zufällig (1–4 Durchgänge)</translation>
    </message>
    <message>
        <source>1 pass</source>
        <translation>1 Durchgang</translation>
    </message>
    <message>
        <source>%1 passes</source>
        <translation>%1 Durchgänge</translation>
    </message>
    <message>
        <source>Random (default)</source>
        <translation>Zufällig (Standard)</translation>
    </message>
    <message>
        <source>Random</source>
        <translation>Zufällig</translation>
    </message>
    <message>
        <source>Zeros (0x00)</source>
        <translation>Nullen (0x00)</translation>
    </message>
    <message>
        <source>Ones (0xFF)</source>
        <translation>Einsen (0xFF)</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
    <message>
        <source>Pa&amp;sses:</source>
        <translation>&amp;Durchgänge:</translation>
    </message>
    <message>
        <source>Pa&amp;ttern:</source>
        <translation>Mus&amp;ter:</translation>
    </message>
    <message>
        <source>DoD method (at least 3 passes)</source>
        <translation>DoD-Verfahren (mindestens 3 Durchgänge)</translation>
    </message>
    <message>
        <source>NSA method (at least 3 passes)</source>
        <translation>NSA-Verfahren (mindestens 3 Durchgänge)</translation>
    </message>
    <message>
        <source>With both methods on, every file is overwritten at least 5 times. More passes take longer and make the erased data harder to recover.</source>
        <translation>Mit beiden Verfahren wird jede Datei mindestens 5-mal überschrieben. Mehr Durchgänge dauern länger und machen die gelöschten Daten schwerer wiederherstellbar.</translation>
    </message>
</context>
<context>
    <name>GeneralPane</name>
    <message>
        <source>Tarnhold watch: shred when a watched browser or mail application quits</source>
        <translation>Tarnhold-Überwachung: schreddern, wenn ein überwachter Browser oder ein Mailprogramm beendet wird</translation>
    </message>
    <message>
        <source>Hide Vantle X after shredding</source>
        <translation>Vantle X nach dem Schreddern ausblenden</translation>
    </message>
    <message>
        <source>Keep an activity log of each run</source>
        <translation>Ein Protokoll jedes Laufs führen</translation>
    </message>
    <message>
        <source>Ask before shredding</source>
        <translation>Vor dem Schreddern fragen</translation>
    </message>
    <message>
        <source>Mail caches</source>
        <translation>Mail-Caches</translation>
    </message>
    <message>
        <source>Apple Mail junk mail</source>
        <translation>Werbung in Apple Mail</translation>
    </message>
    <message>
        <source>Mail trash</source>
        <translation>Mail-Papierkorb</translation>
    </message>
    <message>
        <source>QuickTime cache (when shredding before log out, shut down or restart)</source>
        <translation>QuickTime-Cache (beim Schreddern vor Abmelden, Herunterfahren oder Neustart)</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>While the watch is on, Vantle X starts when you log in, and the watch with it.
The activity log is ~/Library/Logs/Vantle X Log.txt.</source>
        <translation>Solange die Überwachung an ist, startet Vantle X bei der Anmeldung und mit ihm die Überwachung.
Das Protokoll ist ~/Library/Logs/Vantle X Log.txt.</translation>
    </message>
    <message>
        <source>Also erase</source>
        <translation>Außerdem löschen</translation>
    </message>
</context>
<context>
    <name>Html5Pane</name>
    <message>
        <source>Erase HTML5 local &amp;storage and web databases</source>
        <translation>Lokalen HTML5-&amp;Speicher und Webdatenbanken löschen</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>Ent&amp;fernen</translation>
    </message>
    <message>
        <source>Sites whose storage is kept</source>
        <translation>Websites, deren Speicher behalten wird</translation>
    </message>
    <message>
        <source>A site is kept when its name contains an entry: &quot;example.com&quot; keeps the storage of www.example.com and mail.example.com alike.</source>
        <translation>Eine Website wird behalten, wenn ihr Name einen Eintrag enthält: „example.com“ behält den Speicher von www.example.com und mail.example.com gleichermaßen.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Vantle X</source>
        <translation>Vantle X</translation>
    </message>
    <message>
        <source>Erases the traces that browsers and mail clients leave behind.</source>
        <translation>Löscht die Spuren, die Browser und Mailprogramme hinterlassen.</translation>
    </message>
    <message>
        <source>Shred</source>
        <translation>Schreddern</translation>
    </message>
    <message>
        <source>Erase the traces of the enabled applications (%1)</source>
        <translation>Die Spuren der aktivierten Programme löschen (%1)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Shredding progress</source>
        <translation>Fortschritt des Schredderns</translation>
    </message>
    <message>
        <source>Item being shredded</source>
        <translation>Was gerade geschreddert wird</translation>
    </message>
    <message>
        <source>&amp;Preview…</source>
        <translation>V&amp;orschau…</translation>
    </message>
    <message>
        <source>Show what a run would erase and rewrite, and change nothing</source>
        <translation>Zeigen, was ein Lauf löschen und neu schreiben würde, ohne etwas zu ändern</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>Stop the run after the item it is erasing; the others stay as they are</source>
        <translation>Den Lauf nach dem Eintrag anhalten, den er gerade löscht; die übrigen bleiben, wie sie sind</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Wird angehalten…</translation>
    </message>
</context>
<context>
    <name>PluginTableModel</name>
    <message>
        <source>Erase</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation>Plug-in</translation>
    </message>
</context>
<context>
    <name>PluginsPane</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Restore Default Paths</source>
        <translation>Standardpfade wiederherstellen</translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation>Plug-ins</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Folders and files of the selected plug-in</source>
        <translation>Ordner und Dateien des ausgewählten Plug-ins</translation>
    </message>
    <message>
        <source>Runs that end in log out, shut down or restart erase these folders, and so do ordinary runs while no watched application is running.</source>
        <translation>Läufe, die mit Abmelden, Herunterfahren oder Neustart enden, löschen diese Ordner, ebenso gewöhnliche Läufe, solange kein überwachtes Programm läuft.</translation>
    </message>
    <message>
        <source>Select item to shred</source>
        <translation>Zu schreddernde Datei auswählen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Please select an item to shred.</source>
        <translation>Bitte wählen Sie aus, was geschreddert werden soll.</translation>
    </message>
</context>
<context>
    <name>PreviewWindow</name>
    <message>
        <source>Vantle X Preview</source>
        <translation>Vantle X-Vorschau</translation>
    </message>
    <message>
        <source>What a run would erase and rewrite</source>
        <translation>Was ein Lauf löschen und neu schreiben würde</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>&amp;Shred</source>
        <translation>&amp;Schreddern</translation>
    </message>
    <message>
        <source>Rewrite %1</source>
        <translation>%1 neu schreiben</translation>
    </message>
</context>
<context>
    <name>ProfilesManager</name>
    <message>
        <source>Netscape/Mozilla/Seamonkey 1</source>
        <translation>Netscape/Mozilla/Seamonkey 1</translation>
    </message>
    <message>
        <source>Firefox</source>
        <translation>Firefox</translation>
    </message>
    <message>
        <source>Thunderbird</source>
        <translation>Thunderbird</translation>
    </message>
    <message>
        <source>Postbox</source>
        <translation>Postbox</translation>
    </message>
    <message>
        <source>Flock</source>
        <translation>Flock</translation>
    </message>
    <message>
        <source>SeaMonkey 2</source>
        <translation>SeaMonkey 2</translation>
    </message>
    <message>
        <source>Chrome (current versions)</source>
        <translation>Chrome (aktuelle Versionen)</translation>
    </message>
    <message>
        <source>Brave</source>
        <translation>Brave</translation>
    </message>
    <message>
        <source>Vivaldi</source>
        <translation>Vivaldi</translation>
    </message>
    <message>
        <source>Microsoft Edge</source>
        <translation>Microsoft Edge</translation>
    </message>
    <message>
        <source>Opera (current versions)</source>
        <translation>Opera (aktuelle Versionen)</translation>
    </message>
</context>
<context>
    <name>ProfilesPane</name>
    <message>
        <source>No profiles found</source>
        <translation>Keine Profile gefunden</translation>
    </message>
    <message>
        <source>%1 of %2 erased</source>
        <translation>%1 von %2 gelöscht</translation>
    </message>
    <message>
        <source>Profiles to erase</source>
        <translation>Zu löschende Profile</translation>
    </message>
    <message>
        <source>Profiles</source>
        <translation>Profile</translation>
    </message>
    <message>
        <source>Checked profiles are erased. A profile created later is left alone until you check it here; new profiles show up the next time Vantle X starts.</source>
        <translation>Angekreuzte Profile werden gelöscht. Ein später angelegtes Profil bleibt unberührt, bis Sie es hier ankreuzen; neue Profile erscheinen beim nächsten Start von Vantle X.</translation>
    </message>
    <message>
        <source>%1 profiles</source>
        <translation>Profile von %1</translation>
    </message>
</context>
<context>
    <name>QuitSheet</name>
    <message>
        <source>Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when you quit from your web browser or email application. Would you prefer to hide Vantle in the Dock?</source>
        <translation>Wenn Sie Vantle beenden, wird die Tarnhold-Überwachung unterbrochen, und Vantle läuft nicht mehr von selbst, wenn Sie Ihren Webbrowser oder Ihr Mailprogramm beenden. Möchten Sie Vantle lieber im Dock ausblenden?</translation>
    </message>
    <message>
        <source>Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when you quit from your web browser or email application. Would you prefer to hide Vantle in the system tray?</source>
        <translation>Wenn Sie Vantle beenden, wird die Tarnhold-Überwachung unterbrochen, und Vantle läuft nicht mehr von selbst, wenn Sie Ihren Webbrowser oder Ihr Mailprogramm beenden. Möchten Sie Vantle lieber im Systembereich der Kontrollleiste ausblenden?</translation>
    </message>
    <message>
        <source>Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when you quit from your web browser or email application. Would you prefer to minimise Vantle?</source>
        <translation>Wenn Sie Vantle beenden, wird die Tarnhold-Überwachung unterbrochen, und Vantle läuft nicht mehr von selbst, wenn Sie Ihren Webbrowser oder Ihr Mailprogramm beenden. Möchten Sie Vantle lieber minimieren?</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message>
        <source>Custom processes</source>
        <translation>Eigene Prozesse</translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation>Plug-ins</translation>
    </message>
    <message>
        <source>%1 byte</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 item</source>
        <translation>%1 Eintrag</translation>
    </message>
    <message>
        <source>%1 items</source>
        <translation>%1 Einträge</translation>
    </message>
    <message>
        <source>%1 file</source>
        <translation>%1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>%1 database or settings file</source>
        <translation>%1 Datenbank oder Einstellungsdatei</translation>
    </message>
    <message>
        <source>%1 databases and settings files</source>
        <translation>%1 Datenbanken und Einstellungsdateien</translation>
    </message>
    <message>
        <source>Nothing was found to erase or rewrite in %1.</source>
        <translation>In %1 wurde nichts zum Löschen oder Neuschreiben gefunden.</translation>
    </message>
    <message>
        <source>Passed over because running: %1.</source>
        <translation>Übergangen, weil in Betrieb: %1.</translation>
    </message>
    <message>
        <source>Looked for: %1.</source>
        <translation>Gesucht bei: %1.</translation>
    </message>
    <message>
        <source>Erased %1 (%2, %3 = %4).</source>
        <translation>Gelöscht: %1 (%2, %3 = %4).</translation>
    </message>
    <message>
        <source>Rewrote %1.</source>
        <translation>Neu geschrieben: %1.</translation>
    </message>
    <message>
        <source>Could not erase %1; first: %2.</source>
        <translation>Nicht gelöscht: %1; der erste davon: %2.</translation>
    </message>
    <message>
        <source>Stopped: %1 left as they were.</source>
        <translation>Angehalten: %1 unverändert gelassen.</translation>
    </message>
    <message>
        <source>Took %1.</source>
        <translation>Dauer: %1.</translation>
    </message>
    <message>
        <source>Nothing was found to erase in %1.</source>
        <translation>In %1 wurde nichts zum Löschen gefunden.</translation>
    </message>
    <message>
        <source>Erased %1 (%2)</source>
        <translation>Gelöscht: %1 (%2)</translation>
    </message>
    <message>
        <source>rewrote %1</source>
        <translation>%1 neu geschrieben</translation>
    </message>
    <message>
        <source>stopped with %1 left</source>
        <translation>angehalten, %1 übrig</translation>
    </message>
    <message>
        <source>%1 could not be erased</source>
        <translation>%1 nicht löschbar</translation>
    </message>
    <message>
        <source>%1 passed over (running)</source>
        <translation>%1 übergangen (in Betrieb)</translation>
    </message>
    <message>
        <source>%1 in %2.</source>
        <translation>%1 in %2.</translation>
    </message>
    <message>
        <source>Would erase %1 (%2, %3) and rewrite %4.</source>
        <translation>Würde %1 löschen (%2, %3) und %4 neu schreiben.</translation>
    </message>
    <message>
        <source>%1 of %2, %3%</source>
        <translation>%1 von %2, %3 %</translation>
    </message>
    <message>
        <source>, about %1 left</source>
        <translation>, noch etwa %1</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Vantle X Settings</source>
        <translation>Vantle X-Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Erasing</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>&amp;Applications</source>
        <translation>A&amp;nwendungen</translation>
    </message>
    <message>
        <source>HT&amp;ML5</source>
        <translation>HT&amp;ML5</translation>
    </message>
    <message>
        <source>&amp;Profiles</source>
        <translation>&amp;Profile</translation>
    </message>
    <message>
        <source>Pl&amp;ug-ins</source>
        <translation>Pl&amp;ug-ins</translation>
    </message>
    <message>
        <source>&amp;Custom Processes</source>
        <translation>&amp;Eigene Prozesse</translation>
    </message>
    <message>
        <source>&amp;Factory Settings</source>
        <translation>&amp;Werkseinstellungen</translation>
    </message>
    <message>
        <source>Puts the erasing and general settings back to their factory values. Applications, profiles, plug-ins and custom processes stay as they are.</source>
        <translation>Setzt die Lösch- und allgemeinen Einstellungen auf die Werkseinstellungen zurück. Programme, Profile, Plug-ins und eigene Prozesse bleiben, wie sie sind.</translation>
    </message>
</context>
<context>
    <name>WatchPanel</name>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>not running</source>
        <translation>läuft nicht</translation>
    </message>
    <message>
        <source>not watched</source>
        <translation>nicht überwacht</translation>
    </message>
    <message>
        <source>Tarnhold Watch</source>
        <translation>Tarnhold-Überwachung</translation>
    </message>
    <message>
        <source>Custom processes:</source>
        <translation>Eigene Prozesse:</translation>
    </message>
    <message>
        <source>Custom processes configured</source>
        <translation>Eigene Prozesse eingerichtet</translation>
    </message>
    <message>
        <source>Custom processes stopped</source>
        <translation>Eigene Prozesse beendet</translation>
    </message>
    <message>
        <source>Custom processes running</source>
        <translation>Eigene Prozesse laufend</translation>
    </message>
    <message>
        <source>configured</source>
        <translation>eingerichtet</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>beendet</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Examples:
  vantle                 open the window; Shred (Ctrl+Shift+S) erases after asking
  vantle --hidden        start in the system tray, as the login item does

Exit status:
  0  the application quit normally
  2  the command line was refused

Files:
  ~/.config/com.orvick.vantle.plist            the settings, shared with vantle-cli(1)
  ~/.config/autostart/com.orvick.vantle.desktop
                                               the login item, present while the watch is on
  ~/Library/Logs/Vantle X Log.txt              the activity log of the last run, when it is on
  /usr/share/vantle/                           resources: the SQLite shell, empty databases,
                                               translations
</source>
        <translation>Beispiele:
  vantle                 das Fenster öffnen; Schreddern (Strg+Umschalt+S) löscht nach Rückfrage
  vantle --hidden        im Systembereich starten, wie der Anmeldeeintrag es tut

Rückgabewert:
  0  das Programm wurde normal beendet
  2  die Befehlszeile wurde abgelehnt

Dateien:
  ~/.config/com.orvick.vantle.plist            die Einstellungen, geteilt mit vantle-cli(1)
  ~/.config/autostart/com.orvick.vantle.desktop
                                               der Anmeldeeintrag, vorhanden, solange die Überwachung an ist
  ~/Library/Logs/Vantle X Log.txt              das Protokoll des letzten Laufs, wenn es an ist
  /usr/share/vantle/                           Ressourcen: die SQLite-Shell, leere Datenbanken,
                                               Übersetzungen
</translation>
    </message>
    <message>
        <source>Vantle X erases the traces that web browsers and mail clients leave in your home folder.

Erasing cannot be undone: erased files are overwritten before they are removed, and no
tool can bring them back.</source>
        <translation>Vantle X löscht die Spuren, die Webbrowser und Mailprogramme in Ihrem persönlichen Ordner hinterlassen.

Löschen lässt sich nicht rückgängig machen: gelöschte Dateien werden vor dem Entfernen
überschrieben, und kein Werkzeug holt sie zurück.</translation>
    </message>
    <message>
        <source>Print this help and exit.</source>
        <translation>Diese Hilfe ausgeben und beenden.</translation>
    </message>
    <message>
        <source>Print the version and exit.</source>
        <translation>Die Version ausgeben und beenden.</translation>
    </message>
    <message>
        <source>Start with the window hidden, as the login item does.</source>
        <translation>Mit ausgeblendetem Fenster starten, wie der Anmeldeeintrag es tut.</translation>
    </message>
    <message>
        <source>Try &apos;vantle --help&apos;.</source>
        <translation>Mehr dazu mit &apos;vantle --help&apos;.</translation>
    </message>
</context>
</TS>
