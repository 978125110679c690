#include "shell/ui/SettingsStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace settings {

namespace {

QString& Title() {
    static QString title = QStringLiteral("Ferrolith");
    return title;
}

QString ConfigFolder() {
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return base + QStringLiteral("/Ferrolith");
}

// An application name may be a folder path; percent-encoding keeps it one
// group level in the INI file.
QString GroupOf(const QString& appName, const QString& section) {
    return QString::fromLatin1(QUrl::toPercentEncoding(appName)) + QLatin1Char('/') +
           QString::fromLatin1(QUrl::toPercentEncoding(section));
}

}  // namespace

QString ProgramTitle() { return Title(); }

void SetProgramTitle(const QString& title) { Title() = title; }

QString SettingsFilePath() { return ConfigFolder() + QStringLiteral("/settings.ini"); }

QString GetSetting(const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue) {
    QSettings s(SettingsFilePath(), QSettings::IniFormat);
    s.beginGroup(GroupOf(appName, section));
    QVariant v = s.value(key);
    if (!v.isValid()) return defaultValue;
    return v.toString();
}

void SaveSetting(const QString& appName, const QString& section, const QString& key,
                 const QString& value) {
    QDir().mkpath(ConfigFolder());
    QSettings s(SettingsFilePath(), QSettings::IniFormat);
    s.beginGroup(GroupOf(appName, section));
    s.setValue(key, value);
    s.endGroup();
    s.sync();
}

int GetSettingInt(const QString& appName, const QString& section, const QString& key,
                  int defaultValue) {
    bool ok = false;
    int v = GetSetting(appName, section, key).trimmed().toInt(&ok);
    return ok ? v : defaultValue;
}

QString DataFolder() {
    QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (dir.isEmpty()) dir = QDir::homePath() + QStringLiteral("/.local/share/Ferrolith");
    QDir().mkpath(dir);
    return dir;
}

}  // namespace settings
