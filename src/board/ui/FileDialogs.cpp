#include "board/ui/FileDialogs.h"

#include <QFileDialog>

namespace filedialogs {

namespace {
OpenFn& OpenHook() {
    static OpenFn fn;
    return fn;
}
SaveFn& SaveHook() {
    static SaveFn fn;
    return fn;
}
QString Filter(Kind kind) {
    return kind == Kind::Dxf ? QStringLiteral("DXF Drawings (*.dxf *.DXF)") : QStringLiteral("Wld Files (*.wld)");
}
}  // namespace

QString GetOpenPath(QWidget* parent, const QString& title, Kind kind) {
    if (OpenHook()) return OpenHook()(parent, title);
    return QFileDialog::getOpenFileName(parent, title, QString(), Filter(kind));
}

QString GetSavePath(QWidget* parent, const QString& title, bool confirmOverwrite, Kind kind) {
    if (SaveHook()) return SaveHook()(parent, title, confirmOverwrite);
    QFileDialog dlg(parent, title, QString(), Filter(kind));
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    dlg.setDefaultSuffix(kind == Kind::Dxf ? QStringLiteral("dxf") : QStringLiteral("wld"));
    dlg.setOption(QFileDialog::DontConfirmOverwrite, !confirmOverwrite);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return QString();
    return dlg.selectedFiles().first();
}

void SetOpenDialog(OpenFn fn) { OpenHook() = std::move(fn); }
void SetSaveDialog(SaveFn fn) { SaveHook() = std::move(fn); }

}  // namespace filedialogs
