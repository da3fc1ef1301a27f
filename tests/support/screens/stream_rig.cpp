#include "support/screens/stream_rig.h"

#include "all_screens.h"
#include "main_window/start_up.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"
#include "platform/events/mscomm.h"
#include "platform/events/timer.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "platform/windows/menu_entry.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/wait.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <utility>

namespace orbkl4::test {

namespace {

const char* ScreenOf(unsigned command) {
    static const std::map<unsigned, const char*> screens = {
        {0x01, "SensorBits"},  {0x02, "Vectors"},  {0x03, "Vectors"},       {0x04, "Quaternions"},
        {0x05, "Quaternions"}, {0x0A, "Matrices"}, {0x0B, "Matrices"},      {0x0C, "QuatVec"},
        {0x0D, "Angles"},      {0x0E, "Angles"},   {0x31, "AnglesAccRate"}, {0x12, "QuatVec"}};
    return screens.at(command);
}

const char* EntryOf(const PacketKind& kind) {
    if (kind.command == 0x01 || kind.command == 0x31) return "mnuSample";
    return kind.isGyro ? "mnuSampleGyro" : "mnuSampleInstant";
}

/// Ends each busy wait of the program at once.
std::int32_t LeapingTickCount() {
    static std::uint32_t count = 0;
    constexpr std::uint32_t leap = 1000;
    return static_cast<std::int32_t>((count += leap) & 0x3FFFFFFF);
}

std::string Word(const Bytes& packet, std::size_t offset) {
    return std::to_string(packet.at(offset) * 256 + packet.at(offset + 1));
}

}  // namespace

StreamRig::StreamRig() {
    ReplaceTickCount(LeapingTickCount);
    AppState = {};
    SampleState = {};
    StartUp();
    // A different scale for each kind of word.
    AppState.MagGainScale = 3277;
    AppState.AccGainScale = 65535;
    AppState.GyroGainScale = 6553;
    AppState.CommPort = 1;
    AppState.CommSettings = "115200,n,8,1";
    folders_.LinkPort(1, line_.Path());
    dataFile_ = (DataFilesFolder() + QStringLiteral("/stream.csv")).toStdString();
    AppState.DataFileName = dataFile_;
    RegisterAllScreens();
    PlaceScreensIn(&frame_);
    ShowScreen("Main");
    frame_.show();
}

StreamRig::~StreamRig() {
    UnloadAllScreens();
    PlaceScreensIn(nullptr);
    ReplaceTickCount(nullptr);
}

std::string StreamRig::FaultOf(std::span<const std::uint8_t> data) {
    const StreamCase streamCase = ReadStreamCase(data);
    Show(*streamCase.kind);
    std::string fault = FaultOfStream(streamCase);
    const std::string story = story_;
    if (fault.empty()) fault = FaultOfStream(CutSingly(streamCase));
    if (fault.empty() && story_ != story) fault = "another cutting shows something else";
    return fault.empty() ? fault : screen_->objectName().toStdString() + ": " + fault;
}

void StreamRig::Show(const PacketKind& kind) {
    if (kind_ == &kind) return;
    kind_ = &kind;
    if (screen_ != nullptr) screen_->Unload();
    const char* name = ScreenOf(kind.command);
    ShowScreen(name);
    QCoreApplication::processEvents();
    screen_ = FindScreen(name);
    for (auto* timer : screen_->findChildren<Timer*>()) timer->Interval(0);  // no watchdog
    port_ = screen_->findChild<MSComm*>(QLatin1String(kind.isGyro ? "MSComm1" : "MSComm2"));
    led_ = screen_->findChild<CWButton*>(QLatin1String(kind.isGyro ? "LED" : "LEDI"));
    Click();  // a stopped view looks different from a fresh one: its dials show 0
    Click();
    line_.Take(1);
}

void StreamRig::Click() { screen_->Menu(EntryOf(*kind_)).trigger(); }

std::string StreamRig::FaultOfStream(const StreamCase& streamCase) {
    SampleState = {};
    SampleState.SaveActive = streamCase.saving;
    SampleState.WriteIntervalTicks = streamCase.interval;
    std::ofstream(dataFile_, std::ios::trunc).close();
    savedBytes_ = 0;
    story_.clear();
    Click();
    shown_ = Snapshot();
    if (line_.Take(1) != Bytes{static_cast<std::uint8_t>(kind_->command)})
        return "the first request";
    if (led_->Value()) return "the lamp is lit at the start";
    StreamOracle oracle(streamCase);
    for (const auto& [bytes, awaited] : streamCase.pieces) {
        line_.Send(bytes);
        if (oracle.Takes(bytes)) {
            const std::string fault = FaultOfReply(oracle);
            if (!fault.empty()) return fault;
        } else if ((awaited && !AllIn(oracle)) || !line_.Take(0).empty()) {
            return "too many or too few bytes wait, or a request before the reply was whole";
        }
    }
    if (!AllIn(oracle)) return "too many or too few bytes wait at the end";
    Click();
    return line_.Take(0).empty() ? "" : "a request too many at the end";
}

std::string StreamRig::FaultOfReply(const StreamOracle& oracle) {
    Bytes requests;
    WaitFor([&] {
        const Bytes more = line_.Take(0);
        requests.insert(requests.end(), more.begin(), more.end());
        return !requests.empty() || boxes_.Count() > 0;
    });
    ++verdicts_.at(static_cast<std::size_t>(oracle.LastVerdict()));
    if (boxes_.Count() > 0) return "a box: " + boxes_.Texts().front();
    if (requests != Bytes{static_cast<std::uint8_t>(kind_->command)}) {
        return requests.empty() ? "no request after a reply" : "the wrong request after a reply";
    }
    std::string fault = FaultOfShown(oracle);
    if (fault.empty()) fault = FaultOfSaved(oracle);
    return fault;
}

std::string StreamRig::FaultOfShown(const StreamOracle& oracle) {
    const std::string before = std::exchange(shown_, Snapshot());
    story_ += shown_ + (led_->Value() ? "lit\n" : "dark\n");
    if (led_->Value() != oracle.Lit()) return "the lamp";
    const Verdict verdict = oracle.LastVerdict();
    const bool isNew = verdict == Verdict::Shown || verdict == Verdict::Saved;
    if (!isNew) return shown_ == before ? "" : "a rejected reply is shown";
    if (kind_->words == 3) return {};  // its view shows no header, ticks and checksum
    const Bytes& packet = oracle.Reply();
    const std::pair<QString, std::string> head[] = {
        {QStringLiteral("txtHeader"), std::to_string(packet.front())},
        {QStringLiteral("txtTimerTicks"), Word(packet, packet.size() - 4)},
        {QStringLiteral("txtCS"), Word(packet, packet.size() - 2)}};
    for (const auto& [name, text] : head) {
        const QString field = kind_->isGyro ? name : name + QLatin1Char('I');
        if (screen_->findChild<TextField*>(field)->Text() != text)
            return field.toStdString() + " isn't " + text;
    }
    return {};
}

std::string StreamRig::FaultOfSaved(const StreamOracle& oracle) {
    std::ifstream file(dataFile_, std::ios::binary);
    file.seekg(savedBytes_);
    std::string added{std::istreambuf_iterator<char>(file), {}};
    savedBytes_ += static_cast<long>(added.size());
    if (oracle.LastVerdict() != Verdict::Saved)
        return added.empty() ? "" : "a row of a reply that must not be saved: " + added;
    const Bytes& packet = oracle.Reply();
    const bool isOneRow =
        added.ends_with(", " + Word(packet, packet.size() - 4) + "\r\n") &&
        std::ranges::count(added, '\n') == 1 &&
        std::ranges::count(added, ',') == static_cast<std::ptrdiff_t>(kind_->words + 1);
    return isOneRow ? "" : "not the reply's one row is added: " + added;
}

/// Whether the program receives all bytes since the last reply, and no others.
bool StreamRig::AllIn(const StreamOracle& oracle) {
    const auto waiting = [&] { return static_cast<std::size_t>(port_->InBufferCount()); };
    return WaitFor([&] { return waiting() >= oracle.Waiting(); }) && waiting() == oracle.Waiting();
}

std::string StreamRig::Snapshot() const {
    std::string texts;
    for (const auto* field : screen_->findChildren<TextField*>()) texts += field->Text() + ' ';
    for (const auto* slide : screen_->findChildren<CWSlide*>())
        texts += std::to_string(slide->Value()) + ' ';
    for (const auto* dial : screen_->findChildren<CWKnob*>())
        texts += std::to_string(dial->Value()) + ' ';
    return texts;
}

}  // namespace orbkl4::test
