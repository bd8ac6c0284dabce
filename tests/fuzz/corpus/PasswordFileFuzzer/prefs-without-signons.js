user_pref("browser.download.dir", "/Users/u/Desktop");
user_pref("browser.download.folderList", 0);
