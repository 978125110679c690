#include "shell/ui/AboutBox.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/core/AppInfo.h"

AboutBox::AboutBox(Kind kind, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AboutFrm"));
    const bool board = kind == Kind::Board;
    setWindowTitle(board ? QStringLiteral("About Ferrolith") : QStringLiteral("About Scientific Calculator"));

    auto* title = new QLabel(board ? QString::fromUtf8(appinfo::kProgramTitle)
                                   : QStringLiteral("Ferrolith Scientific Calculator"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    QFont f = title->font();
    f.setPointSizeF(f.pointSizeF() * 1.6);
    f.setBold(true);
    title->setFont(f);

    auto* version = new QLabel(QStringLiteral("Version ") + QString::fromUtf8(appinfo::kVersion), this);
    version->setObjectName(QStringLiteral("lblVersion"));

    auto* what = new QLabel(
        board ? QStringLiteral("Capacity of eccentrically loaded weld groups by the\n"
                               "instantaneous center of rotation method,\n"
                               "with weld and bolt group coefficient calculators.")
              : QStringLiteral("Scientific calculator with 100 memory registers,\n"
                               "statistics data, a table of constants and read-out-loud."),
        this);
    what->setObjectName(QStringLiteral("lblDescription"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OKButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(24, 20, 24, 16);
    lay->setSpacing(10);
    lay->addWidget(title);
    lay->addWidget(version);
    lay->addWidget(what);
    lay->addSpacing(8);
    lay->addWidget(buttons);
    setFixedSize(sizeHint());
}
