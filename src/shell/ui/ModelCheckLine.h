// The line under a result that shows the AISC element model's value for the
// same case, and a warning (icon and text in the warning colour) where the
// program's iteration exceeds it by more than the threshold. The element
// model is solved beside the window's thread, so that a large group never
// holds the window; a newer request makes an older one's answer void.
#pragma once

#include <QFutureWatcher>
#include <QWidget>
#include <QtConcurrent/QtConcurrentRun>
#include <functional>
#include <optional>

#include "shell/core/ModelCheck.h"

class QLabel;

namespace shell {

class ModelCheckLine : public QWidget {
    Q_OBJECT
public:
    // objectName "ModelCheckLine"; its text label is "ModelCheckText", the
    // icon "ModelCheckIcon" (shown only with a warning).
    explicit ModelCheckLine(QWidget* parent = nullptr);

    // The threshold in percent from the settings (read once per window).
    static double ThresholdPercent();

    // Empties the line and voids any solve still under way.
    void Clear();

    // Solves the element model aside and shows the comparison with
    // `system` when it is done, both values multiplied by `scale` (a unit
    // capacity shown in kips). `element` runs on another thread: it must own
    // copies of everything it reads.
    void Check(double system, std::function<std::optional<double>()> element, QString unit, int decimals,
               double scale = 1.0);

    // Shows the comparison with both values multiplied by `scale` (a new
    // electrode, size or method).
    void Rescale(double scale);

    const modelcheck::Comparison& Last() const { return last_; }
    bool HasResult() const { return hasResult_; }
    QString Text() const;

private:
    void Show();

    QLabel* icon_;
    QLabel* text_;
    double threshold_;
    int request_ = 0;
    bool hasResult_ = false;
    modelcheck::Comparison unit_;  // at scale 1
    modelcheck::Comparison last_;  // as shown
    QString unitName_;
    int decimals_ = 2;
    double scale_ = 1.0;
};

}  // namespace shell
