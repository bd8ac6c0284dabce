#pragma once

#include <QString>

class CleanerContext;
struct ChromiumProfile;

// What a run erases of one profile of today's Chromium-based browsers, by the
// run's settings: the caches, the session and history files, the rewritten
// stores, the saved passwords, the site storage of the sites not kept and the
// preference file's host lists. Writes the profile's "Shred: "/"Skip: " lines.
void cleanChromiumProfile(CleanerContext& context, const ChromiumProfile& profile);

// The user-data folder's Local State without its host lists, and its store of
// visited pages' metrics (segmentation_platform/ukm_db) under the history
// setting; once per folder, after its profiles.
void cleanChromiumLocalState(CleanerContext& context, const QString& userDataFolder);
