// The program's file dialogs behind a seam: the program asks the platform's
// dialogs, tests put their own answers in place.
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace filedialogs {

// A chosen path, or an empty text when the user cancelled.
using OpenFn = std::function<QString(QWidget* parent, const QString& title)>;
using SaveFn = std::function<QString(QWidget* parent, const QString& title, bool confirmOverwrite)>;

// Layouts (*.wld), DXF drawings (*.dxf) or PDF files; the seam sees only the title.
enum class Kind { Layout, Dxf, Pdf };

QString GetOpenPath(QWidget* parent, const QString& title, Kind kind = Kind::Layout);
QString GetSavePath(QWidget* parent, const QString& title, bool confirmOverwrite, Kind kind = Kind::Layout);

// Replaces the dialogs; an empty function puts the real dialog back.
void SetOpenDialog(OpenFn fn);
void SetSaveDialog(SaveFn fn);

}  // namespace filedialogs
