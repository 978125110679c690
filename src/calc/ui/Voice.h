// The calculator's voice: asynchronous speech over espeak-ng with word events.
//
// Speak() returns at once; the words are synthesised on the speech engine's
// own thread and, as each word starts, Word() is emitted on the thread of the
// voice's owner with the word's place in the text that was given (0-based,
// in QString characters). A new Speak() cuts off what the voice is saying, so
// the newest words are heard at once; an empty text only cuts off.
//
// Without a speech engine (no library at build time, no voice data, or the
// output switched off) every call does nothing: the calculator runs silently
// and says nothing about it.
#pragma once

#include <QObject>
#include <QString>

class Voice : public QObject {
    Q_OBJECT
public:
    // Where synthesised sound goes. Chosen once per process, before the
    // first voice speaks; later changes are ignored.
    enum class Output {
        Speakers,  // the audio device; no device found means no speech
        Memory,    // synthesis into memory only (tests and checks)
        None       // no speech at all
    };
    static void SetOutput(Output output);
    // True when the engine runs and has a voice to speak with.
    static bool Available();

    explicit Voice(QObject* parent = nullptr);
    ~Voice() override;

    // Says `text` asynchronously, over whatever is being said; "" cuts off.
    void Speak(const QString& text);
    // The text of the last Speak() that is still being said; empty when none.
    QString Speaking() const { return text_; }

signals:
    // A word starts: its place and length in the text given to Speak().
    void Word(int characterPosition, int length);
    // The text has been said to its end (not emitted for cut-off speech);
    // `samples` counts the sound samples made for it.
    void Finished(qint64 samples);

private:
    friend struct VoiceRelay;
    void Deliver(unsigned utterance, int type, int position, int length, qint64 samples);

    QString text_;
    unsigned utterance_ = 0;  // engine id of the text being said, 0 when none
    qint64 samples_ = 0;      // sound made for it so far
};
