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
const char* const kFilter = "Wld Files (*.wld)";
}  // namespace

QString GetOpenPath(QWidget* parent, const QString& title) {
    if (OpenHook()) return OpenHook()(parent, title);
    return QFileDialog::getOpenFileName(parent, title, QString(), QString::fromLatin1(kFilter));
}

QString GetSavePath(QWidget* parent, const QString& title, bool confirmOverwrite) {
    if (SaveHook()) return SaveHook()(parent, title, confirmOverwrite);
    QFileDialog dlg(parent, title, QString(), QString::fromLatin1(kFilter));
    dlg.setAcceptMode(QFileDialog::AcceptSave);
    dlg.setDefaultSuffix(QStringLiteral("wld"));
    dlg.setOption(QFileDialog::DontConfirmOverwrite, !confirmOverwrite);
    if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return QString();
    return dlg.selectedFiles().first();
}

void SetOpenDialog(OpenFn fn) { OpenHook() = std::move(fn); }
void SetSaveDialog(SaveFn fn) { SaveHook() = std::move(fn); }

}  // namespace filedialogs
