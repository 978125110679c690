#include "shell/ui/FileDialogs.h"

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
    switch (kind) {
        case Kind::Dxf: return QStringLiteral("DXF Drawings (*.dxf *.DXF)");
        case Kind::Pdf: return QStringLiteral("PDF Files (*.pdf)");
        default: return QStringLiteral("Wld Files (*.wld)");
    }
}
QString Suffix(Kind kind) {
    return kind == Kind::Dxf ? QStringLiteral("dxf") : kind == Kind::Pdf ? QStringLiteral("pdf") : QStringLiteral("wld");
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
    dlg.setDefaultSuffix(Suffix(kind));
    dlg.setOption(QFileDialog::DontConfirmOverwrite, !confirmOverwrite);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return QString();
    return dlg.selectedFiles().first();
}

void SetOpenDialog(OpenFn fn) { OpenHook() = std::move(fn); }
void SetSaveDialog(SaveFn fn) { SaveHook() = std::move(fn); }

}  // namespace filedialogs
