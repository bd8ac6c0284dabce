# The Debian package, made by CPack from the install rules (scripts/package).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantle)
set(CPACK_PACKAGE_VENDOR Orvick)
set(CPACK_PACKAGE_CONTACT "Vantle X developers <vantle@orvick.com>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${VANTLE_BUILD_NUMBER})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://www.orvick.com/vantle/)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The resources' SQLite shell is a link to Debian's.
set(CPACK_DEBIAN_PACKAGE_DEPENDS sqlite3)
# Qt's standard buttons in the interface's language.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "erase the traces browsers and mail clients leave behind")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Vantle X erases what web browsers and mail clients leave in a home folder:
caches, history, cookies, saved passwords, download lists, site icons, form
history, HTML5 storage, mail caches, junk and trash. Files are overwritten,
renamed and removed; databases that mix what the user keeps with what must go
are rebuilt without the unwanted rows. Erasing cannot be undone.
.
The package holds the desktop application (vantle), which can watch browsers
and mail clients and erase when they quit, and the command vantle-cli.")
include(CPack)
