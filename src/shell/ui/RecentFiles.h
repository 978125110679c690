// The list of recently opened layouts: up to eight full paths, most recent
// first, kept as the text values "1" to "8" of one group of their own INI file.
#pragma once

#include <QString>
#include <QStringList>

namespace recent {

constexpr int kMaxRecent = 8;

// Reads value `name` ("1".."8"); false when it is absent.
bool Reg_Read(const QString& name, QString& value);
void Reg_Write(const QString& name, const QString& value);

// Puts a path at the top of the list. An exact match (case included) moves up
// and is not repeated; "UnNamed.wld", in any case, never enters the list.
void SaveAsRecent(const QString& path);

// The values "1" to "8" that can be read, in order.
QStringList RecentPaths();

QString RecentFilePath();

}  // namespace recent
