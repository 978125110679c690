#include "calc/ui/Voice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QPointer>
#include <atomic>
#include <mutex>
#include <vector>

#ifdef FERROLITH_HAVE_ESPEAK
#include <espeak-ng/speak_lib.h>
#endif

namespace {

enum EventType { kWord = 1, kSamples = 2, kEnd = 3 };

std::atomic<int> gOutput{int(Voice::Output::Speakers)};

// Somewhere for the sound to go: a sound server of the session or a sound
// card. Without either the engine would only complain on the terminal.
bool HasAudioDevice() {
    if (!qEnvironmentVariableIsEmpty("PULSE_SERVER")) return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() &&
        (QFileInfo::exists(runtime + "/pulse/native") || QFileInfo::exists(runtime + "/pipewire-0")))
        return true;
    return !QDir("/dev/snd").entryList({"pcmC*D*p"}, QDir::System).isEmpty();
}

}  // namespace

// Lives on the thread that made the first voice and hands the engine's events
// to the voice whose text they belong to.
struct VoiceRelay : QObject {
    QHash<unsigned, Voice*> owners;  // engine id of a text -> its voice

    static VoiceRelay*& Instance() {
        static VoiceRelay* relay = nullptr;
        return relay;
    }
    void Post(unsigned utterance, int type, int position, int length, qint64 samples) {
        QMetaObject::invokeMethod(
            this,
            [this, utterance, type, position, length, samples] {
                if (Voice* v = owners.value(utterance, nullptr)) v->Deliver(utterance, type, position, length, samples);
            },
            Qt::QueuedConnection);
    }
};

namespace {

bool gAvailable = false;

#ifdef FERROLITH_HAVE_ESPEAK
// Runs on the engine's thread: only forwards.
int SynthCallback(short* /*wav*/, int samples, espeak_EVENT* events) {
    VoiceRelay* relay = VoiceRelay::Instance();
    if (relay == nullptr || events == nullptr) return 0;
    bool counted = false;
    for (espeak_EVENT* e = events; e->type != espeakEVENT_LIST_TERMINATED; ++e) {
        const unsigned id = e->unique_identifier;
        if (id == 0) continue;
        if (!counted && samples > 0) {
            relay->Post(id, kSamples, 0, 0, samples);
            counted = true;
        }
        if (e->type == espeakEVENT_WORD)
            relay->Post(id, kWord, e->text_position - 1, e->length, 0);
        else if (e->type == espeakEVENT_MSG_TERMINATED)
            relay->Post(id, kEnd, 0, 0, 0);
    }
    return 0;
}
#endif

// Starts the engine once per process; false leaves the voice silent.
bool StartEngine() {
    static std::once_flag once;
    std::call_once(once, [] {
        VoiceRelay::Instance() = new VoiceRelay;  // kept for the whole run
#ifdef FERROLITH_HAVE_ESPEAK
        const auto output = Voice::Output(gOutput.load());
        if (output == Voice::Output::None) return;
        if (output == Voice::Output::Speakers && !HasAudioDevice()) return;
        const auto mode = output == Voice::Output::Memory ? AUDIO_OUTPUT_RETRIEVAL : AUDIO_OUTPUT_PLAYBACK;
        // 0x8000: report missing voice data instead of ending the program.
        if (espeak_Initialize(mode, 0, nullptr, 0x8000) <= 0) return;
        if (espeak_SetVoiceByName("en") != EE_OK) return;
        espeak_SetSynthCallback(SynthCallback);
        gAvailable = true;
#endif
    });
    return gAvailable;
}

}  // namespace

void Voice::SetOutput(Output output) { gOutput = int(output); }

bool Voice::Available() { return StartEngine(); }

Voice::Voice(QObject* parent) : QObject(parent) { StartEngine(); }

Voice::~Voice() { Speak(QString()); }

void Voice::Speak(const QString& text) {
    if (!gAvailable) return;
#ifdef FERROLITH_HAVE_ESPEAK
    VoiceRelay* relay = VoiceRelay::Instance();
    if (utterance_ != 0) {
        espeak_Cancel();
        relay->owners.remove(utterance_);
        utterance_ = 0;
        text_.clear();
    }
    if (text.isEmpty()) return;
    const QByteArray utf8 = text.toUtf8();
    unsigned id = 0;
    if (espeak_Synth(utf8.constData(), size_t(utf8.size()) + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, &id, nullptr) !=
            EE_OK ||
        id == 0)
        return;
    utterance_ = id;
    text_ = text;
    samples_ = 0;
    relay->owners.insert(id, this);
#else
    Q_UNUSED(text);
#endif
}

void Voice::Deliver(unsigned utterance, int type, int position, int length, qint64 samples) {
    if (utterance != utterance_) return;
    switch (type) {
        case kSamples:
            samples_ += samples;
            break;
        case kWord: {
            // The engine counts characters (code points); the text counts UTF-16 units.
            int index = 0;
            for (int cp = 0; cp < position && index < text_.size(); ++cp)
                index += text_.at(index).isHighSurrogate() ? 2 : 1;
            emit Word(index, length);
            break;
        }
        case kEnd: {
            VoiceRelay::Instance()->owners.remove(utterance_);
            utterance_ = 0;
            text_.clear();
            emit Finished(samples_);
            break;
        }
    }
}
