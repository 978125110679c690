#include "shell/ui/SheetOutput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QUrl>

#include "shell/print/SheetPrinter.h"
#include "shell/ui/FileDialogs.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"

namespace sheetui {

namespace {

const QString kSection = QStringLiteral("CalculationSheet");
const char* const kKeys[] = {"SheetProject", "SheetJobNumber", "SheetEngineer", "SheetChecker"};
const char* const kLabels[] = {"Project:", "Job number:", "Engineer:", "Checker:"};

QString Get(const char* key, const QString& fallback = QString()) {
    return settings::GetSetting(settings::ProgramTitle(), kSection, QString::fromLatin1(key), fallback);
}
void Put(const char* key, const QString& value) {
    settings::SaveSetting(settings::ProgramTitle(), kSection, QString::fromLatin1(key), value);
}

sheet::Paper PaperSetting() { return Get("SheetPaper") == QStringLiteral("A4") ? sheet::Paper::A4 : sheet::Paper::Letter; }

PrintSeam& Seam() {
    static PrintSeam seam;
    return seam;
}

bool asked = false;  // the dialog was shown in this run

bool Ask(QWidget* parent) {
    QDialog dlg(parent);
    dlg.setObjectName(QStringLiteral("TitleBlockFrm"));
    dlg.setWindowTitle(QStringLiteral("Calculation Sheet"));
    auto* form = new QFormLayout(&dlg);
    QLineEdit* boxes[4];
    for (int i = 0; i < 4; ++i) {
        boxes[i] = new QLineEdit(Get(kKeys[i]), &dlg);
        boxes[i]->setObjectName(QString::fromLatin1(kKeys[i]));
        boxes[i]->setMinimumWidth(boxes[i]->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 24);
        form->addRow(QString::fromLatin1(kLabels[i]), boxes[i]);
    }
    auto* paper = new QComboBox(&dlg);
    paper->setObjectName(QStringLiteral("SheetPaper"));
    paper->addItems({QStringLiteral("US Letter"), QStringLiteral("A4")});
    paper->setCurrentIndex(PaperSetting() == sheet::Paper::A4 ? 1 : 0);
    form->addRow(QStringLiteral("Paper:"), paper);
    auto* open = new QCheckBox(QStringLiteral("Open a PDF once it is written"), &dlg);
    open->setObjectName(QStringLiteral("SheetOpenPdf"));
    open->setChecked(Get("SheetOpenPdf") == QStringLiteral("1"));
    form->addRow(open);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dlg);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dlg, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dlg, &QDialog::reject);
    form->addRow(buttons);
    if (dlg.exec() != QDialog::Accepted) return false;
    for (int i = 0; i < 4; ++i) Put(kKeys[i], boxes[i]->text().trimmed());
    Put("SheetPaper", paper->currentIndex() == 1 ? QStringLiteral("A4") : QStringLiteral("Letter"));
    Put("SheetOpenPdf", open->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    asked = true;
    return true;
}

}  // namespace

void SetPrintSeam(PrintSeam seam) { Seam() = std::move(seam); }

void SheetButtons::SetEnabled(bool on) const {
    if (Pdf != nullptr) Pdf->setEnabled(on);
    if (Print != nullptr) Print->setEnabled(on);
}

SheetButtons Make_SheetButtons(QWidget* parent, std::function<Maker()> maker) {
    SheetButtons b{new QPushButton(QStringLiteral("Sheet as PDF..."), parent),
                   new QPushButton(QStringLiteral("Print Sheet..."), parent)};
    b.Pdf->setObjectName(QStringLiteral("SheetPdfButton"));
    b.Pdf->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    b.Print->setObjectName(QStringLiteral("SheetPrintButton"));
    b.Print->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    for (QPushButton* button : {b.Pdf, b.Print}) {
        button->setAutoDefault(false);
        button->setEnabled(false);
        const bool print = button == b.Print;
        QObject::connect(button, &QPushButton::clicked, parent, [parent, maker, print] {
            const Maker make = maker();
            if (!make) return;
            if (print)
                Print(parent, make);
            else
                Export_Pdf(parent, make);
        });
    }
    return b;
}

bool Title_Block(QWidget* parent, sheet::TitleBlock& title, bool ask) {
    if ((ask || !asked) && !Ask(parent)) return false;
    title.Project = S(Get(kKeys[0]));
    title.JobNumber = S(Get(kKeys[1]));
    title.Engineer = S(Get(kKeys[2]));
    title.Checker = S(Get(kKeys[3]));
    title.Date = S(QDate::currentDate().toString(Qt::ISODate));
    return true;
}

bool Export_Pdf(QWidget* parent, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make) {
    sheet::TitleBlock title;
    if (!Title_Block(parent, title)) return false;
    const QString path = filedialogs::GetSavePath(parent, QStringLiteral("Export Calculation as PDF"), true,
                                                  filedialogs::Kind::Pdf);
    if (path.isEmpty()) return false;
    const std::string error = sheetprint::WritePdf(make(title), PaperSetting(), SPath(path));
    if (!error.empty()) {
        QMessageBox::warning(parent, QStringLiteral("Calculation Sheet"),
                             QStringLiteral("Cannot write %1: %2").arg(path, Q(error)));
        return false;
    }
    if (Get("SheetOpenPdf") == QStringLiteral("1")) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    return true;
}

bool Print(QWidget* parent, const std::function<sheet::Sheet(const sheet::TitleBlock&)>& make) {
    sheet::TitleBlock title;
    if (!Title_Block(parent, title)) return false;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(PaperSetting() == sheet::Paper::A4 ? QPageSize::A4 : QPageSize::Letter));
    printer.setFullPage(false);
    if (Seam()) {
        if (!Seam()(parent, printer)) return false;
    } else {
        QPrintDialog dialog(&printer, parent);
        if (dialog.exec() != QDialog::Accepted) return false;
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        QMessageBox::warning(parent, QStringLiteral("Calculation Sheet"), QStringLiteral("The printer cannot be used."));
        return false;
    }
    sheetprint::Paint(painter, printer, make(title));
    painter.end();
    return true;
}

}  // namespace sheetui
