#include "calc/ui/HelpWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "calc/core/HelpTopics.h"
#include "calc/core/CalculatorState.h"
#include "calc/ui/Voice.h"
#include "shell/core/Primitives.h"
#include "shell/ui/QtText.h"

namespace {

// The author panel of the last topic: who made the calculator, by role.
constexpr const char* kAuthorText =
    "<p style='font-size:large'><b>About the Author</b></p>"
    "<p>This calculator was written by a practising structural engineer, who designs welded and "
    "bolted connections and wanted an engineering calculator on the screen beside the spreadsheet.</p>"
    "<p>It is part of the connection design tools of Ferrolith and shares their care for numbers "
    "that go on signed drawings.</p>";

}  // namespace

HelpWindow::HelpWindow(CalculatorState& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("CalcHelpFrm");
    setWindowTitle("Calculator Help");

    MenuBox = new QListWidget(this);
    MenuBox->setObjectName("MenuBox");
    MenuBox->setFixedWidth(fontMetrics().horizontalAdvance("Angle Specification Modes") + 40);

    HBox = new QTextEdit(this);
    HBox->setObjectName("HBox");
    HBox->setReadOnly(true);
    // The marked word stays visible while the topic list keeps the focus.
    QPalette pal = HBox->palette();
    pal.setColor(QPalette::Inactive, QPalette::Highlight, pal.color(QPalette::Active, QPalette::Highlight));
    pal.setColor(QPalette::Inactive, QPalette::HighlightedText, pal.color(QPalette::Active, QPalette::HighlightedText));
    HBox->setPalette(pal);

    DemImage = new QLabel(this);
    DemImage->setObjectName("DemImage");
    DemImage->setText(kAuthorText);
    DemImage->setWordWrap(true);
    DemImage->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    DemImage->setFrameShape(QFrame::StyledPanel);
    DemImage->setMargin(16);
    DemImage->hide();

    ExitButton = new QPushButton("Exit", this);
    ExitButton->setObjectName("ExitButton");
    ExitButton->setAutoDefault(false);

    auto* panes = new QHBoxLayout;
    panes->addWidget(MenuBox);
    panes->addWidget(HBox, 1);
    panes->addWidget(DemImage, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ExitButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(panes, 1);
    layout->addLayout(buttons);
    resize(640, 400);

    connect(MenuBox, &QListWidget::currentRowChanged, this, &HelpWindow::MenuBox_Click);
    connect(ExitButton, &QPushButton::clicked, this, &HelpWindow::ExitButton_Click);
    Form_Load();
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::Open(CalculatorState& s, QWidget* parent) {
    HelpWindow frm(s, parent);
    frm.exec();
}

void HelpWindow::Form_Load() {
    voice_ = new Voice(this);
    connect(voice_, &Voice::Word, this, &HelpWindow::Voice_Word);
    MenuBox->clear();
    for (int i = 1; i <= HelpTopics::kHelpIndexCount; ++i) {
        std::string title, text;
        HelpTopics::Fill_Help(i, title, text);
        if (!prim::Trim(title).empty()) MenuBox->addItem(Q(title));
    }
    MenuBox->addItem(HelpTopics::kAuthorItem);
}

void HelpWindow::MenuBox_Click(int row) {
    if (row < 0) return;
    std::string title, text;
    HelpTopics::Fill_Help(row + 1, title, text);
    // One character a line break, as the pane counts them.
    HBox->setPlainText(Q(prim::Replace(text, "\r\n", "\n")));
    QTextCursor c = HBox->textCursor();
    c.setPosition(0);
    HBox->setTextCursor(c);

    titleLength_ = Q(title).size();
    if (s_.ReadOutOn) voice_->Speak(Q(HelpTopics::Spoken_Topic(title, text)));

    const bool author = row == MenuBox->count() - 1;
    HBox->setVisible(!author);
    DemImage->setVisible(author);
}

void HelpWindow::Voice_Word(int characterPosition, int length) {
    const auto mark = HelpTopics::Word_Mark(characterPosition, length, titleLength_);
    if (!mark) return;
    const int end = HBox->document()->characterCount() - 1;
    const int start = std::min(mark->Start, end);
    QTextCursor c = HBox->textCursor();
    c.setPosition(start);
    c.setPosition(std::min(start + mark->Length, end), QTextCursor::KeepAnchor);
    HBox->setTextCursor(c);
}

void HelpWindow::ExitButton_Click() {
    voice_->Speak(QString());
    close();
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    voice_->Speak(QString());
    QDialog::closeEvent(event);
}
