<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Cli</name>
    <message>
        <source>enabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown application &quot;%1&quot; (one of: %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enabled: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change which applications are erased and watched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The applications, enabled or not</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable an application (and its coupled one)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Application name, as &apos;apps list&apos; shows it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disable an application (and its coupled one)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try &apos;vantle-cli --help&apos;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No custom processes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  (folder kept)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>  (folder)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is watched already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no custom process &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is listed for that process already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not listed for that process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>keep takes on or off, not &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a folder listed for that process</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change your own watched processes and their paths</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every custom process with its paths</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The application (its full path)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A file or folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>on or off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>refusing to erase &quot;%1&quot;: it is or holds the home folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overwrite, rename and remove files and folders with the current settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files or folders to erase</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show no progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the wall time spent overwriting and the whole erase&apos;s, with peak memory, on stderr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HTML5 storage erasing: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a kept domain cannot be empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is kept already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not kept (see &apos;vantle-cli keep list&apos;)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change the domains whose HTML5 storage is kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whether HTML5 storage is erased, and the kept domains</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erase HTML5 storage, except the kept domains</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erase no HTML5 storage at all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kept wherever a storage name contains it</source>
        <translation type="unfinished"></translation>
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
  1  the run was cancelled, or a file could not be erased
  2  the command line was refused (unknown command, setting or name, a value of
     the wrong kind); nothing was changed

Files:
  ~/.config/com.orvick.vantle.plist     the settings, shared with the desktop application
  ~/Library/Logs/Vantle X Log.txt       the activity log of the last run, when it is on
  /usr/share/vantle/                    resources: the SQLite shell, empty databases

vantle-cli never creates a login item; the desktop application vantle(1) starts the
watch at login while the watch is on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown command &apos;%1&apos;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown command &apos;%1&apos;; did you mean &apos;%2&apos;?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vantle X erases the traces that web browsers and mail clients leave in your home folder:
caches, history, cookies, saved passwords, HTML5 storage, mail trash and junk.

Erasing cannot be undone: erased files are overwritten before they are removed, and no
tool can bring them back. Try &apos;shred --dry-run&apos; first to see what a run would erase.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print this help and exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the version and exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Act as if DIR were the home folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--home: no such folder &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no plug-in named &quot;%1&quot; (see &apos;vantle-cli plugins list&apos;)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a plug-in needs a name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is a plug-in named &quot;%1&quot; already</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; takes no paths</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a default plug-in: there is nothing to restore</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change the plug-in folders a run erases</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The plug-ins, enabled or not, with their paths</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug-in name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File or folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> or </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown setting &quot;%1&quot; (see &apos;vantle-cli prefs list&apos;)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>factory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 takes YES or NO, not &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 takes %2, not &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change the settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every setting, its value, and whether it is the factory value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the value of one setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Setting name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change one setting (booleans: YES/NO/true/false/1/0)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put every setting back to its factory value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>    no profiles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown application &quot;%1&quot; (mozilla, firefox, thunderbird, postbox, flock or seamonkey)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no profile &quot;%1&quot; in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or change which browser and mail profiles are erased</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every profile found, selected or not</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mozilla, firefox, thunderbird, postbox, flock or seamonkey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile folder name, or the name after its dot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Would erase:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1  bytes in %2 of the %3 paths queued (the others do not exist)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Erase the traces of every enabled application that is not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Answer the confirmation with OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit the browsers first, log out afterwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit the browsers first, shut down afterwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit the browsers first, restart afterwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show what would be erased, with sizes, and change nothing on disk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show no progress bar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print each stage&apos;s wall time and peak memory (finding, shredding) on the standard error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not watched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No terminal to answer on: Cancel.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shred?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--interval takes a number of seconds from above 0 to 3600</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the Tarnhold watch is off (vantle-cli prefs set Tarnhold YES turns it on)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run the Tarnhold watch: erase when a watched application quits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Answer the confirmation of each run with OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show every application&apos;s state as it changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seconds between polls (default 10; for tests and demos)</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vantle X erases the traces that web browsers and mail clients leave in your home folder.

Erasing cannot be undone: erased files are overwritten before they are removed, and no
tool can bring them back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print this help and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the version and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start with the window hidden, as the login item does.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try &apos;vantle --help&apos;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
