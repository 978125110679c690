// The main window's document commands: New, Open, Save, Save As, the recent
// list, Close with its question about changes, the start-up with a path from
// the command line, and the two commands that empty the board.
#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>

#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/core/Dimensions.h"
#include "shell/ui/FileDialogs.h"
#include "board/core/LayoutFile.h"
#include "board/ui/MainWindow.h"
#include "shell/core/AppInfo.h"
#include "shell/ui/QtText.h"
#include "shell/ui/RecentFiles.h"

namespace {
const QString kUnNamed = QStringLiteral("UnNamed.wld");
QString ProgramTitle() { return QString::fromUtf8(appinfo::kProgramTitle); }
}  // namespace

void MainWindow::Warn(const QString& text, bool stopIcon) {
    QMessageBox box(stopIcon ? QMessageBox::Critical : QMessageBox::Warning, QStringLiteral("Warning:"), text,
                    QMessageBox::Ok, this);
    box.exec();
}

bool MainWindow::Both_Empty() const {
    return Viewport::Lines_Empty(doc_.Lines) && Dimensions::Dims_Empty(doc_.Dims);
}

void MainWindow::Mark_Saved() {
    doc_.LinesSaved = doc_.Lines;
    doc_.DimsSaved = doc_.Dims;
}

void MainWindow::Set_Caption_From_File() {
    setWindowTitle(ProgramTitle() + QStringLiteral(" - ") + QPath(LayoutFile::File_Title(SPath(FileName_))).toUpper());
}

// What the board says of a layout it could not read.
void MainWindow::Warn_Unread(const QString& path, const LayoutFile::LayoutRead& r) {
    using LayoutFile::ReadFailure;
    if (r.Failure == ReadFailure::Missing)
        Warn(QStringLiteral("Cannot find ") + path.toUpper());
    else if (r.Failure == ReadFailure::Empty || r.Failure == ReadFailure::Damaged)
        Warn(QStringLiteral("The document's format is invalid or not supported."));
    else
        Warn(Q(r.Error.Message()));
}

MainWindow::Answer MainWindow::Ask_Save_Changes() {
    if (FileName_.trimmed().isEmpty()) FileName_ = kUnNamed;
    if (Both_Empty()) return Answer::NothingToAsk;
    if (!LayoutFile::Layout_Changed(doc_)) return Answer::No;
    QMessageBox box(QMessageBox::Warning, ProgramTitle() + QStringLiteral(" Warning"),
                    QStringLiteral("Save Changes To ") + FileName_.toUpper() + QStringLiteral(" ?"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    switch (box.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: return Answer::Cancel;
    }
}

bool MainWindow::Save_Dialog(bool fromQuestion) {
    const QString path = filedialogs::GetSavePath(this, QStringLiteral("Specify Filename:"), !fromQuestion);
    if (path.isEmpty()) return false;
    FileName_ = path;
    return true;
}

void MainWindow::Write_Layout() {
    const LayoutFile::FileError err = LayoutFile::Write_Layout(doc_, SPath(FileName_));
    if (err.Failed()) Warn(Q(err.Message()));
}

// The recent list is rebuilt after `then`, so that a file it opens is listed.
bool MainWindow::Save_Layout(bool askName, bool fromQuestion, const std::function<void()>& then) {
    if (askName) {
        if (!Save_Dialog(fromQuestion)) return false;
        recent::SaveAsRecent(FileName_);
    }
    Write_Layout();
    if (then) then();
    if (askName) mnuFile_Click();
    return true;
}

void MainWindow::Reset_Document() {
    board_->Reset_View();
    SyncUi();
}

// A file that cannot be read is named in a message and changes nothing: the
// drawing keeps its name, so that no save goes over that file unasked.
bool MainWindow::Open_Path(const QString& path) {
    board_->Hide_Marks();
    const LayoutFile::LayoutRead read = LayoutFile::Read_Layout_Checked(doc_, SPath(path));
    if (!read.Ok()) {
        Warn_Unread(path, read);
        return false;
    }
    FileName_ = path;
    Set_Caption_From_File();
    recent::SaveAsRecent(FileName_);
    board_->Show_Document();
    SyncUi();
    return true;
}

bool MainWindow::Open_Dialog_File() {
    board_->Hide_Marks();
    const QString path = filedialogs::GetOpenPath(this, QStringLiteral("Open File:"));
    if (path.isEmpty() || !Open_Path(path)) return false;
    Mark_Saved();
    return true;
}

void MainWindow::mnuFileNew_Click() {
    if (Both_Empty()) {
        FileName_ = kUnNamed;
        setWindowTitle(ProgramTitle() + QStringLiteral(" - ") + FileName_);
        Reset_Document();
    } else {
        switch (Ask_Save_Changes()) {
        case Answer::Cancel: return;
        case Answer::Yes:
            if (!Save_Layout(FileName_ == kUnNamed, true, [this] { Reset_Document(); })) return;
            break;
        default:
            FileName_ = kUnNamed;
            setWindowTitle(ProgramTitle() + QStringLiteral(" - UNNAMED.WLD"));
            Reset_Document();
            break;
        }
    }
    Mark_Saved();
}

void MainWindow::mnuOpenData_Click() {
    board_->Hide_Marks();
    switch (Ask_Save_Changes()) {
    case Answer::Cancel: return;
    case Answer::Yes: Save_Layout(FileName_ == kUnNamed, true, [this] { Open_Dialog_File(); }); break;
    default: Open_Dialog_File(); break;
    }
}

void MainWindow::mnuSaveData_Click() {
    if (FileName_.trimmed().isEmpty()) FileName_ = kUnNamed;
    if (Both_Empty()) {
        Warn(QStringLiteral("No Data to save !  "));
        return;
    }
    const bool askName = FileName_ == kUnNamed;
    if (!Save_Layout(askName, false)) return;
    if (askName) Set_Caption_From_File();
    Mark_Saved();
}

void MainWindow::mnuSaveAs_Click() {
    if (Both_Empty()) {
        Warn(QStringLiteral("No Data to save !  "));
        return;
    }
    if (!Save_Layout(true, false)) return;
    Set_Caption_From_File();
    Mark_Saved();
}

void MainWindow::mnuRecDocs_Click(const QString& p) {
    if (FileName_.trimmed().isEmpty()) FileName_ = kUnNamed;
    if (!QFileInfo::exists(p)) {
        Warn(QStringLiteral("Cannot find ") + p.toUpper());
    } else if (Both_Empty()) {
        if (!Open_Path(p)) return;
    } else {
        switch (Ask_Save_Changes()) {
        case Answer::Cancel: return;
        case Answer::Yes: {
            const bool askName = FileName_ == kUnNamed;
            // A named drawing goes into the chosen file, which is then read back.
            if (!askName) FileName_ = p;
            if (!Save_Layout(askName, true, [this] { Open_Path(FileName_); })) return;
            break;
        }
        default:
            if (!Open_Path(p)) return;
            break;
        }
    }
    Mark_Saved();
}

void MainWindow::closeEvent(QCloseEvent* e) {
    switch (Ask_Save_Changes()) {
    case Answer::Cancel: e->ignore(); return;
    case Answer::Yes: Save_Layout(FileName_ == kUnNamed, true); break;
    default: break;
    }
    e->accept();
}

void MainWindow::Startup(const QString& commandLine) {
    SnapButton[0]->setChecked(true);
    // The board starts at its design size until the window lays it out.
    DrawingBoard->resize(DrawingBoard->minimumSize());
    board_->Set_Mode(BoardState::DRAW);
    board_->Show_Prompt();
    doc_.ScaleWidth = static_cast<float>(DrawingBoard->ScaleWidth());
    doc_.ScaleHeight = static_cast<float>(DrawingBoard->ScaleHeight());
    Viewport::Set_Viewport(doc_);
    doc_.Lines = Layout::BlankLines();
    doc_.Dims = Layout::BlankDims();
    // The path arrives as the shell hands it; one pair of quotes round it goes.
    QString path = commandLine;
    if (path.size() >= 2 && path.startsWith(QLatin1Char('"')) && path.endsWith(QLatin1Char('"')))
        path = path.mid(1, path.size() - 2);
    FileName_ = path.isEmpty() ? kUnNamed : path;
    if (!path.trimmed().isEmpty()) {
        const int dot = path.lastIndexOf(QLatin1Char('.'));
        if (dot < 0 || path.mid(dot).toUpper() != QStringLiteral(".WLD")) {
            Warn(QStringLiteral("The document's format is invalid or not supported."));
        } else {
            const LayoutFile::LayoutRead read = LayoutFile::Read_Layout_Checked(doc_, SPath(FileName_));
            if (read.Ok()) {
                recent::SaveAsRecent(FileName_);
                board_->Repaint(true);
                Set_Caption_From_File();
            } else {
                // Said as Open Data says it; the board starts as a new drawing
                // with no name, so that a save cannot go over that file.
                Warn_Unread(FileName_, read);
                FileName_ = kUnNamed;
                setWindowTitle(QString::fromUtf8(appinfo::kStartCaption));
            }
        }
    } else {
        setWindowTitle(QString::fromUtf8(appinfo::kStartCaption));
    }
    Mark_Saved();
    SyncUi();
}

void MainWindow::ClearButton_Click() {
    board_->ClearButton_Click();
    SyncUi();
}

void MainWindow::ClearDimButton_Click() {
    board_->ClearDimButton_Click();
    SyncUi();
}

void MainWindow::Clear_Recent_Items() {
    for (int i = 1; i < mnuRecDocs_.size(); ++i) {
        recentAnchor_->removeAction(mnuRecDocs_[i]);
        mnuRecDocs_[i]->deleteLater();
    }
    mnuRecDocs_.resize(1);
    mnuRecDocs_[0]->setText(QStringLiteral("Empty"));
    mnuRecDocs_[0]->setEnabled(false);
}

int MainWindow::Add_Recent_Item(const QString& path) {
    if (mnuRecDocs_[0]->text() == QStringLiteral("Empty")) {
        mnuRecDocs_[0]->setEnabled(true);
        mnuRecDocs_[0]->setText(path);
        return 0;
    }
    auto* a = new QAction(path, recentAnchor_);
    a->setObjectName(QStringLiteral("mnuRecDocs"));
    connect(a, &QAction::triggered, this, [this, a] { mnuRecDocs_Click(a->text()); });
    recentAnchor_->insertAction(recentSeparator_, a);
    mnuRecDocs_.push_back(a);
    return static_cast<int>(mnuRecDocs_.size()) - 1;
}

void MainWindow::mnuFile_Click() {
    Clear_Recent_Items();
    for (const QString& p : recent::RecentPaths()) Add_Recent_Item(p);
    const bool sheet = Sheet_Available();
    action(QStringLiteral("mnuPrintCalc"))->setEnabled(sheet);
    action(QStringLiteral("mnuExportCalcPdf"))->setEnabled(sheet);
}
