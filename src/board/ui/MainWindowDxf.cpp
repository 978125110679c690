// File > Import DXF... and File > Export DXF...: the drawing read with a
// progress dialog that can cancel it, the layers and units chosen, the lines
// taken into the layout as one step that Undo takes back; the layout written
// as a DXF drawing.
#include <algorithm>

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>

#include "board/core/DxfFile.h"
#include "board/core/DxfLayout.h"
#include "board/core/Viewport.h"
#include "board/ui/DxfImportDialog.h"
#include "shell/ui/FileDialogs.h"
#include "board/ui/MainWindow.h"
#include "shell/core/FileIO.h"
#include "shell/ui/QtText.h"

namespace {

const QString kImportTitle = QStringLiteral("Import DXF");
const QString kExportTitle = QStringLiteral("Export DXF");
// A segment not longer than the finest strip of a capacity run is no weld line.
constexpr double kShortest = 1.0 / 64.0;

}  // namespace

void MainWindow::mnuImportDxf_Click() {
    const QString path = filedialogs::GetOpenPath(this, kImportTitle, filedialogs::Kind::Dxf);
    if (!path.isEmpty()) Import_Dxf(path);
}

bool MainWindow::Import_Dxf(const QString& path) {
    // The read shows its progress once it has taken half a second, and the
    // window stays live; Cancel ends it with the layout as it was.
    QProgressDialog progress(QStringLiteral("Reading %1 ...").arg(QFileInfo(path).fileName()),
                             QStringLiteral("Cancel"), 0, 1000, this);
    progress.setObjectName(QStringLiteral("DxfProgress"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    progress.setAutoReset(false);
    progress.setValue(0);
    int shown = 0;
    const auto tick = [&](double share) {
        const int now = static_cast<int>(share * 1000);
        if (now != shown) progress.setValue(shown = now);
        QCoreApplication::processEvents();
        return !progress.wasCanceled();
    };
    Dxf::Drawing drawing;
    const Dxf::ReadError read = Dxf::Read(SPath(path), drawing, tick);
    progress.close();
    if (read == Dxf::ReadError::Cancelled) return false;
    if (read != Dxf::ReadError::None) {
        QMessageBox::warning(this, kImportTitle, Q(Dxf::ErrorText(read, SPath(path))));
        return false;
    }
    const std::vector<int32_t> usable = DxfLayout::UsableCounts(drawing);
    if (std::all_of(usable.begin(), usable.end(), [](int32_t n) { return n == 0; })) {
        DxfLayout::ImportResult none;
        none.error = DxfLayout::ImportError::NoUsableSegment;
        QMessageBox::warning(this, kImportTitle, Q(DxfLayout::ErrorText(none)));
        return false;
    }
    DxfImportDialog dialog(drawing, usable, this);
    if (dialog.exec() != QDialog::Accepted) return false;
    DxfLayout::ImportOptions options = dialog.Options();
    options.shortest = kShortest;

    BoardState::Board& board = *board_;
    board.Begin_Change();
    const DxfLayout::ImportResult result = DxfLayout::Import(doc_, drawing, options);
    board.End_Change("Import DXF");
    if (result.error != DxfLayout::ImportError::None) {
        QMessageBox::warning(this, kImportTitle, Q(DxfLayout::ErrorText(result)));
        return false;
    }
    Viewport::Build_Intersections(doc_.Lines, doc_.Intersections, doc_.IntersectionsFound, board.Yield);
    board.Hide_Marks();
    board.RefreshButton_Click();
    SyncUi();
    QMessageBox::information(this, kImportTitle, Q(DxfLayout::SummaryText(result.summary)));
    return true;
}

void MainWindow::mnuExportDxf_Click() {
    const QString path = filedialogs::GetSavePath(this, kExportTitle, true, filedialogs::Kind::Dxf);
    if (path.isEmpty()) return;
    // The last capacity run's results go with it while they are the layout's.
    const std::string bytes = Dxf::Write(DxfLayout::ExportOf(doc_, board_->Layout_Results()));
    if (bytes.empty()) {
        QMessageBox::warning(this, kExportTitle, QStringLiteral("The layout could not be made into a DXF drawing."));
        return;
    }
    const fileio::IoError e = fileio::WriteReplacing(SPath(path), bytes);
    if (e.Failed())
        QMessageBox::warning(this, kExportTitle, QStringLiteral("Cannot write %1: %2").arg(path, Q(e.Message())));
}
