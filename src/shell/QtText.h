// Text between the core (UTF-8 std::string) and the windows (QString).
#pragma once

#include <QString>
#include <string>

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& s) { return s.toStdString(); }
