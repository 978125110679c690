#include "board/ui/LineDataDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "board/core/BoardMessages.h"
#include "board/core/LineData.h"
#include "shell/core/KeyFilters.h"
#include "shell/ui/QtText.h"

namespace {

// The small sketch of a line beside the base point list, with a frame on the
// point that stays put.
class LineSketch : public QWidget {
public:
    explicit LineSketch(QWidget* parent) : QWidget(parent) { setFixedSize(150, 64); }
    QPoint Start() const { return {18, 48}; }
    QPoint End() const { return {132, 16}; }
    QPoint Mid() const { return (Start() + End()) / 2; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(palette().color(QPalette::WindowText), 2));
        p.drawLine(Start(), End());
        p.setBrush(palette().color(QPalette::WindowText));
        for (const QPoint& pt : {Start(), Mid(), End()}) p.drawEllipse(QPointF(pt), 2.5, 2.5);
    }
};

QFrame* MarkFrame(QWidget* parent, const char* name, QPoint centre) {
    auto* f = new QFrame(parent);
    f->setObjectName(QString::fromLatin1(name));
    f->setFrameShape(QFrame::Box);
    f->setLineWidth(1);
    f->setStyleSheet(QStringLiteral("QFrame { border: 2px solid #c00000; }"));
    f->setGeometry(centre.x() - 7, centre.y() - 7, 14, 14);
    f->hide();
    return f;
}

QLabel* ValueLabel(QWidget* parent, const char* name) {
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setFrameShape(QFrame::StyledPanel);
    l->setFrameShadow(QFrame::Sunken);
    l->setMinimumWidth(190);
    l->setContentsMargins(4, 2, 4, 2);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

QGroupBox* Group(QWidget* parent, const char* caption, std::initializer_list<QWidget*> widgets) {
    auto* g = new QGroupBox(QString::fromUtf8(caption), parent);
    auto* lay = new QVBoxLayout(g);
    lay->setSpacing(4);
    for (QWidget* w : widgets) lay->addWidget(w);
    return g;
}

}  // namespace

LineDataDialog::LineDataDialog(Layout::LayoutDocument& doc, int16_t lineIndex, BoardHooks hooks, QWidget* parent)
    : QDialog(parent), doc_(doc), index_(lineIndex), hooks_(std::move(hooks)) {
    setObjectName(QStringLiteral("LineDataFrm"));
    setWindowTitle(QStringLiteral("Line Data"));
    CopyEnds();

    LineNameBox = ValueLabel(this, "LineNameBox");
    StartPTx = ValueLabel(this, "StartPTx");
    StartPTy = ValueLabel(this, "StartPTy");
    EndPTx = ValueLabel(this, "EndPTx");
    EndPTy = ValueLabel(this, "EndPTy");
    SegLen = ValueLabel(this, "SegLen");
    RotAng = ValueLabel(this, "RotAng");
    xRotAng = ValueLabel(this, "xRotAng");

    DisplayModeBox = new QCheckBox(QStringLiteral(" DISPLAY VALUES IN ARCHITECTURAL UNIT"), this);
    DisplayModeBox->setObjectName(QStringLiteral("DisplayModeBox"));

    auto* sketch = new LineSketch(this);
    sketch->setObjectName(QStringLiteral("LineSketch"));
    StartBox = MarkFrame(sketch, "StartBox", sketch->Start());
    MidBox = MarkFrame(sketch, "MidBox", sketch->Mid());
    EndBox = MarkFrame(sketch, "EndBox", sketch->End());

    BasePtBox = new QComboBox(this);
    BasePtBox->setObjectName(QStringLiteral("BasePtBox"));
    for (const char* entry : LineData::kBasePointEntries) BasePtBox->addItem(QString::fromLatin1(entry));
    BasePtBox->setCurrentIndex(0);

    LenBox = new QLineEdit(this);
    LenBox->setObjectName(QStringLiteral("LenBox"));
    RotBox = new QLineEdit(this);
    RotBox->setObjectName(QStringLiteral("RotBox"));
    RotBox->installEventFilter(this);

    ApplyButton = new QPushButton(QStringLiteral("Apply"), this);
    ApplyButton->setObjectName(QStringLiteral("ApplyButton"));
    ApplyButton->setDefault(true);
    ExitButton = new QPushButton(QStringLiteral("Exit"), this);
    ExitButton->setObjectName(QStringLiteral("ExitButton"));
    ExitButton->setAutoDefault(false);

    // Left: what the line is. Right: what it should become.
    auto* left = new QVBoxLayout;
    left->addWidget(Group(this, "LINE SEQUENCE I.D.", {LineNameBox}));
    left->addWidget(Group(this, "START POINT", {StartPTx, StartPTy}));
    left->addWidget(Group(this, "END POINT", {EndPTx, EndPTy}));
    left->addWidget(Group(this, "SEGMENT LENGTH", {SegLen}));
    left->addWidget(Group(this, "ROTATION ANGLE", {RotAng, xRotAng}));
    left->addStretch(1);

    auto* baseGroup = Group(this, "BASE POINT", {BasePtBox, sketch});
    auto* right = new QVBoxLayout;
    right->addWidget(baseGroup);
    right->addWidget(Group(this, "SEGMENT NEW LENGTH", {LenBox}));
    right->addWidget(Group(this, "NEW ROTATION ANGLE", {RotBox}));
    right->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ApplyButton);
    buttons->addWidget(ExitButton);
    right->addLayout(buttons);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(14);
    columns->addLayout(left);
    columns->addLayout(right);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(14, 12, 14, 12);
    outer->addLayout(columns);
    outer->addWidget(DisplayModeBox);

    connect(DisplayModeBox, &QCheckBox::toggled, this, [this] { Refresh_LineData(); });
    connect(BasePtBox, &QComboBox::currentIndexChanged, this, [this] { BasePtBox_Click(); });
    connect(BasePtBox, &QComboBox::activated, this, [this] { BasePtBox_Click(); });
    connect(ApplyButton, &QPushButton::clicked, this, [this] { ApplyButton_Click(); });
    connect(ExitButton, &QPushButton::clicked, this, [this] { ExitButton_Click(); });

    BasePtBox_Click();
    Refresh_LineData();
    setFixedSize(sizeHint());
}

void LineDataDialog::CopyEnds() {
    if (index_ < 0 || static_cast<size_t>(index_) >= doc_.Lines.size()) return;
    SelStart = doc_.Lines[static_cast<size_t>(index_)].StartPt;
    SelEnd = doc_.Lines[static_cast<size_t>(index_)].EndPt;
}

void LineDataDialog::Refresh_LineData() {
    std::string name;
    if (index_ >= 0 && static_cast<size_t>(index_) < doc_.Lines.size())
        name = doc_.Lines[static_cast<size_t>(index_)].LineName;
    const LineData::LineDataTexts t =
        LineData::Refresh_LineData(doc_, name, SelStart, SelEnd, DisplayModeBox->isChecked());
    LineNameBox->setText(Q(t.LineNameBox));
    StartPTx->setText(Q(t.StartPTx));
    StartPTy->setText(Q(t.StartPTy));
    EndPTx->setText(Q(t.EndPTx));
    EndPTy->setText(Q(t.EndPTy));
    SegLen->setText(Q(t.SegLen));
    RotAng->setText(Q(t.RotAng));
    xRotAng->setText(Q(t.xRotAng));
}

void LineDataDialog::BasePtBox_Click() {
    const int i = BasePtBox->currentIndex();
    StartBox->setVisible(i == LineData::BasePoint::Start);
    MidBox->setVisible(i == LineData::BasePoint::Mid);
    EndBox->setVisible(i == LineData::BasePoint::End);
}

void LineDataDialog::BoardChanged() {
    CopyEnds();
    if (hooks_.Redraw) hooks_.Redraw();
    if (hooks_.Show_Grips && index_ >= 0 && static_cast<size_t>(index_) < doc_.Lines.size())
        hooks_.Show_Grips(doc_.Lines[static_cast<size_t>(index_)]);
}

void LineDataDialog::ApplyButton_Click() {
    const LineData::ApplyResult r = LineData::Apply_LineData(
        doc_, index_, S(LenBox->text()), S(RotBox->text()), static_cast<int16_t>(BasePtBox->currentIndex()));
    if (r.Refused) {
        LenBox->setFocus();
        LenBox->selectAll();
        const auto& m = BoardMessages::kInvalidLength;
        QMessageBox::critical(this, Q(m.Title), Q(m.Text));
        return;
    }
    LenBox->setText(Q(r.LenBoxText));
    RotBox->setText(Q(r.RotBoxText));
    if (r.Changed) BoardChanged();
    Refresh_LineData();
}

void LineDataDialog::ExitButton_Click() {
    if (index_ >= 0 && static_cast<size_t>(index_) < doc_.Lines.size())
        doc_.Lines[static_cast<size_t>(index_)].Selected = 0;
    accept();
}

bool LineDataDialog::eventFilter(QObject* watched, QEvent* event) {
    // The new angle takes a signed decimal number only.
    if (watched == RotBox && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        if (text.isEmpty() || key->key() == Qt::Key_Escape) return QDialog::eventFilter(watched, event);
        const char16_t code = text.at(0).unicode();
        KeyFilters::BoxState box{S(RotBox->text()),
                                 RotBox->hasSelectedText() && RotBox->selectedText() == RotBox->text()};
        if (code > 127 || KeyFilters::Key_SignedDecimal(static_cast<int16_t>(code), box) == 0) return true;
    }
    return QDialog::eventFilter(watched, event);
}
