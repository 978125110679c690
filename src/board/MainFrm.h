// The main window: menus, tool bar and status bar around the drawing board.
// The tool windows are opened from its Calcs menu.
#pragma once

#include <QList>
#include <QMainWindow>
#include <vector>

#include "bolt/BoltDataHandling.h"
#include "calc/CalcVariables.h"

class QAction;
class QMenu;
class QLabel;

class MainFrm : public QMainWindow {
    Q_OBJECT
public:
    explicit MainFrm(QWidget* parent = nullptr);
    ~MainFrm() override;

    QAction* action(const QString& objectName) const;
    QMenu* menu(const QString& objectName) const;

    // Rebuilds the recent-file entries of the File menu from the stored list.
    void mnuFile_Click();

private:
    QMenu* AddMenu(const QString& name, const QString& caption);
    QAction* AddAction(QMenu* menu, const QString& name, const QString& caption, bool enabled = false);
    void Clear_Recent_Items();
    int Add_Recent_Item(const QString& path);
    void mnuAbout_Click();

    QMenu* recentAnchor_ = nullptr;
    QAction* recentSeparator_ = nullptr;
    QList<QAction*> mnuRecDocs_;
    // Rows of the bolt coefficient window, kept for the whole run.
    std::vector<BoltDataHandling::BoltRecord> BoltRecords;
    // The calculator's state: it outlives the calculator window for the run.
    CalcVariables CalcState;
};
