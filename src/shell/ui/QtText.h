// Text between the core (UTF-8 std::string) and the windows (QString).
#pragma once

#include <QString>
#include <string>

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& s) { return s.toStdString(); }

// File paths between the system (bytes) and the windows (QString). A path is
// UTF-8 where it can be read as such; each byte that is not is kept as one of
// the code points U+DC80 to U+DCFF, so that a name in another encoding is
// shown as well as it can be and comes back to the system byte for byte.
inline QString QPath(const std::string& bytes) {
    static const char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};  // below: an overlong form
    QString out;
    for (size_t i = 0; i < bytes.size();) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const size_t len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
        char32_t cp = len == 1 ? c : c & (0x7F >> len);
        bool ok = len > 0 && i + len <= bytes.size();
        for (size_t k = 1; ok && k < len; ++k) {
            const auto d = static_cast<unsigned char>(bytes[i + k]);
            ok = (d >> 6) == 2;
            cp = (cp << 6) | (d & 0x3F);
        }
        if (ok && cp >= kLeast[len] && cp <= 0x10FFFF && (cp < 0xD800 || cp > 0xDFFF)) {
            out += QString::fromUcs4(&cp, 1);
            i += len;
        } else {
            out += QChar(static_cast<char16_t>(0xDC00 + c));
            ++i;
        }
    }
    return out;
}

inline std::string SPath(const QString& path) {
    std::string out;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const char16_t u = path[i].unicode();
        if (QChar::isHighSurrogate(u) && i + 1 < path.size() && QChar::isLowSurrogate(path[i + 1].unicode())) {
            out += path.mid(i, 2).toStdString();
            ++i;
        } else if (u >= 0xDC80 && u <= 0xDCFF) {
            out += static_cast<char>(u - 0xDC00);
        } else {
            out += QString(QChar(u)).toStdString();
        }
    }
    return out;
}
