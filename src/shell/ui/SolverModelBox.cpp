#include "shell/ui/SolverModelBox.h"

#include <QComboBox>

#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"

namespace shell {

namespace {
const QString kSection = QStringLiteral("FerrolithSetting");
const QString kKey = QStringLiteral("SolverModel");
}  // namespace

QComboBox* NewSolverModelBox(QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QStringLiteral("ModelBox"));
    box->addItem(QStringLiteral("Iterative (default)"));
    box->addItem(QStringLiteral("AISC element model"));
    SolverModel model = SolverModel::Iterative;
    ParseSolverModel(S(settings::GetSetting(settings::ProgramTitle(), kSection, kKey,
                                            QStringLiteral("iterative"))),
                     model);
    box->setCurrentIndex(model == SolverModel::AiscElement ? 1 : 0);
    QObject::connect(box, &QComboBox::currentIndexChanged, box, [box] {
        settings::SaveSetting(settings::ProgramTitle(), kSection, kKey,
                              QString::fromLatin1(SolverModelName(SolverModelOf(box))));
    });
    return box;
}

SolverModel SolverModelOf(const QComboBox* box) {
    return box->currentIndex() == 1 ? SolverModel::AiscElement : SolverModel::Iterative;
}

}  // namespace shell
