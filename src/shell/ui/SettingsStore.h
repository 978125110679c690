// What the program remembers between runs: small text settings by
// application name, section and key, in an INI file under the user's config
// folder, and the program's data folder for its own small data files.
#pragma once

#include <QString>

namespace settings {

// The application title settings are keyed by. A second calculator that
// gives up its title (single-instance start) changes it for the rest of the run.
QString ProgramTitle();
void SetProgramTitle(const QString& title);

// The stored text, or `defaultValue` when the key or the file is missing.
QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue = QString());
void SaveSetting(const QString& appName, const QString& section, const QString& key,
                 const QString& value);

// A stored list index read as a whole number; `defaultValue` when missing or
// not a number.
int GetSettingInt(const QString& appName, const QString& section, const QString& key,
                  int defaultValue);

// The folder of the program's own data files (bolt cases, calculator memory
// and statistics data); created when it does not exist yet.
QString DataFolder();

// Path of the settings file, for tests and diagnostics.
QString SettingsFilePath();

}  // namespace settings
