#include "shell/ui/ModelCheckLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"

namespace shell {

namespace {
// Dark amber: reads as a warning on a light window and stays legible.
const QColor kWarningColour(176, 84, 0);
}  // namespace

ModelCheckLine::ModelCheckLine(QWidget* parent)
    : QWidget(parent), icon_(new QLabel(this)), text_(new QLabel(this)), threshold_(ThresholdPercent()) {
    setObjectName(QStringLiteral("ModelCheckLine"));
    icon_->setObjectName(QStringLiteral("ModelCheckIcon"));
    text_->setObjectName(QStringLiteral("ModelCheckText"));
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(icon_, 0, Qt::AlignTop);
    row->addWidget(text_, 1);
    icon_->hide();
    // Room for two lines, so that the window does not jump when a warning comes.
    text_->setMinimumHeight(text_->fontMetrics().lineSpacing() * 2);
}

double ModelCheckLine::ThresholdPercent() {
    return modelcheck::PercentFrom(S(settings::GetSetting(settings::ProgramTitle(), QStringLiteral("FerrolithSetting"),
                                                          Q(std::string(modelcheck::kPercentKey)))));
}

void ModelCheckLine::Clear() {
    ++request_;
    hasResult_ = false;
    text_->clear();
    icon_->hide();
}

void ModelCheckLine::Check(double system, std::function<std::optional<double>()> element, QString unit,
                           int decimals, double scale) {
    Clear();
    const int request = request_;
    unitName_ = std::move(unit);
    decimals_ = decimals;
    scale_ = scale;
    text_->setText(QStringLiteral("AISC element model: solving\u2026"));
    auto* watcher = new QFutureWatcher<std::optional<double>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, request, system] {
        watcher->deleteLater();
        if (request != request_) return;  // a newer run or a clearing came first
        unit_ = modelcheck::Compare(system, watcher->result(), threshold_);
        hasResult_ = true;
        Rescale(scale_);
    });
    watcher->setFuture(QtConcurrent::run(std::move(element)));
}

void ModelCheckLine::Rescale(double scale) {
    scale_ = scale;
    if (!hasResult_) return;
    last_ = unit_;
    last_.system *= scale;
    last_.element *= scale;
    Show();
}

QString ModelCheckLine::Text() const { return text_->text(); }

void ModelCheckLine::Show() {
    QString text = Q(modelcheck::CheckLine(last_, S(unitName_), decimals_));
    QPalette p = text_->palette();
    if (last_.exceeds) {
        text += QLatin1Char('\n') + Q(modelcheck::WarningLine(last_));
        const int side = text_->fontMetrics().height();
        const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning);
        icon_->setPixmap(warning.pixmap(QSize(side, side), devicePixelRatioF()));
        icon_->setFixedSize(side, side);
        icon_->show();
        p.setColor(QPalette::WindowText, kWarningColour);
    } else {
        icon_->hide();
        p.setColor(QPalette::WindowText, palette().color(QPalette::WindowText));
    }
    text_->setPalette(p);
    text_->setText(text);
}

}  // namespace shell
