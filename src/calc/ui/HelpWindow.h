// The calculator's help window: the topic list, the text of the chosen topic
// and, with read-out-loud on, the topic spoken with each word marked in the
// text as the voice reaches it.
#pragma once

#include <QDialog>

struct CalculatorState;
class QLabel;
class QListWidget;
class QPushButton;
class QTextEdit;
class Voice;

class HelpWindow : public QDialog {
    Q_OBJECT
public:
    HelpWindow(CalculatorState& s, QWidget* parent = nullptr);
    ~HelpWindow() override;

    // Opens the window modally over `parent`.
    static void Open(CalculatorState& s, QWidget* parent);

    // The window's voice (tests listen to its word events).
    Voice* HelpVoice() const { return voice_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Fill_Topics();
    void Show_Topic(int row);
    void Mark_Word(int characterPosition, int length);
    void Leave();

    CalculatorState& s_;
    Voice* voice_ = nullptr;
    int titleLength_ = 0;  // title of the topic being read, for the marking
    QListWidget* topics_ = nullptr;
    QTextEdit* text_ = nullptr;
    QLabel* author_ = nullptr;
    QPushButton* exit_ = nullptr;
};
