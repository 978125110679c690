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

    topics_ = new QListWidget(this);
    topics_->setObjectName("MenuBox");
    topics_->setFixedWidth(fontMetrics().horizontalAdvance("Angle Specification Modes") + 40);

    text_ = new QTextEdit(this);
    text_->setObjectName("HBox");
    text_->setReadOnly(true);
    // The marked word stays visible while the topic list keeps the focus.
    QPalette pal = text_->palette();
    pal.setColor(QPalette::Inactive, QPalette::Highlight, pal.color(QPalette::Active, QPalette::Highlight));
    pal.setColor(QPalette::Inactive, QPalette::HighlightedText, pal.color(QPalette::Active, QPalette::HighlightedText));
    text_->setPalette(pal);

    author_ = new QLabel(this);
    author_->setObjectName("DemImage");
    author_->setText(kAuthorText);
    author_->setWordWrap(true);
    author_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    author_->setFrameShape(QFrame::StyledPanel);
    author_->setMargin(16);
    author_->hide();

    exit_ = new QPushButton("Exit", this);
    exit_->setObjectName("ExitButton");
    exit_->setAutoDefault(false);

    auto* panes = new QHBoxLayout;
    panes->addWidget(topics_);
    panes->addWidget(text_, 1);
    panes->addWidget(author_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(exit_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(panes, 1);
    layout->addLayout(buttons);
    resize(640, 400);

    connect(topics_, &QListWidget::currentRowChanged, this, &HelpWindow::Show_Topic);
    connect(exit_, &QPushButton::clicked, this, &HelpWindow::Leave);
    Fill_Topics();
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::Open(CalculatorState& s, QWidget* parent) {
    HelpWindow frm(s, parent);
    frm.exec();
}

void HelpWindow::Fill_Topics() {
    voice_ = new Voice(this);
    connect(voice_, &Voice::Word, this, &HelpWindow::Mark_Word);
    topics_->clear();
    for (int i = 1; i <= HelpTopics::kHelpIndexCount; ++i) {
        std::string title, text;
        HelpTopics::Fill_Help(i, title, text);
        if (!prim::Trim(title).empty()) topics_->addItem(Q(title));
    }
    topics_->addItem(HelpTopics::kAuthorItem);
}

void HelpWindow::Show_Topic(int row) {
    if (row < 0) return;
    std::string title, text;
    HelpTopics::Fill_Help(row + 1, title, text);
    // One character a line break, as the pane counts them.
    text_->setPlainText(Q(prim::Replace(text, "\r\n", "\n")));
    QTextCursor c = text_->textCursor();
    c.setPosition(0);
    text_->setTextCursor(c);

    titleLength_ = Q(title).size();
    if (s_.ReadOutOn) voice_->Speak(Q(HelpTopics::Spoken_Topic(title, text)));

    const bool author = row == topics_->count() - 1;
    text_->setVisible(!author);
    author_->setVisible(author);
}

void HelpWindow::Mark_Word(int characterPosition, int length) {
    const auto mark = HelpTopics::Word_Mark(characterPosition, length, titleLength_);
    if (!mark) return;
    const int end = text_->document()->characterCount() - 1;
    const int start = std::min(mark->Start, end);
    QTextCursor c = text_->textCursor();
    c.setPosition(start);
    c.setPosition(std::min(start + mark->Length, end), QTextCursor::KeepAnchor);
    text_->setTextCursor(c);
}

void HelpWindow::Leave() {
    voice_->Speak(QString());
    close();
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    voice_->Speak(QString());
    QDialog::closeEvent(event);
}
