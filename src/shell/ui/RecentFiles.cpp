#include "shell/ui/RecentFiles.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace recent {

namespace {
const char* const kGroup = "Software/Ferrolith/RecentFiles";

QString Folder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Ferrolith");
}
}  // namespace

QString RecentFilePath() { return Folder() + QStringLiteral("/recent.ini"); }

bool Reg_Read(const QString& name, QString& value) {
    QSettings s(RecentFilePath(), QSettings::IniFormat);
    s.beginGroup(QLatin1String(kGroup));
    QVariant v = s.value(name);
    if (!v.isValid()) return false;
    value = v.toString();
    // Stored strings end at their first zero character, as a registry string would.
    int zero = value.indexOf(QChar(0));
    if (zero >= 0) value.truncate(zero);
    return true;
}

void Reg_Write(const QString& name, const QString& value) {
    QDir().mkpath(Folder());
    QSettings s(RecentFilePath(), QSettings::IniFormat);
    s.beginGroup(QLatin1String(kGroup));
    s.setValue(name, value);
    s.endGroup();
    s.sync();
}

void SaveAsRecent(const QString& path) {
    if (path.toUpper() == QStringLiteral("UNNAMED.WLD")) return;
    int k = 0;
    for (int i = 1; i <= kMaxRecent && k == 0; ++i) {
        QString v;
        if (Reg_Read(QString::number(i), v) && v == path) k = i;
    }
    // Shift the entries above the match (or all but the last) down one place.
    int from = k > 0 ? k - 1 : kMaxRecent - 1;
    for (int i = from; i >= 1; --i) {
        QString v;
        if (Reg_Read(QString::number(i), v)) Reg_Write(QString::number(i + 1), v);
    }
    Reg_Write(QStringLiteral("1"), path);
}

QStringList RecentPaths() {
    QStringList out;
    for (int i = 1; i <= kMaxRecent; ++i) {
        QString v;
        if (Reg_Read(QString::number(i), v)) out << v;
    }
    return out;
}

}  // namespace recent
