#include "support/screens/stream_rig.h"

#include "acquire/logic/sample_state.h"
#include "all_screens.h"
#include "frame/logic/app_state.h"
#include "frame/start_up.h"
#include "platform/clock.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"
#include "platform/menu_entry.h"
#include "platform/mscomm.h"
#include "platform/program_folder.h"
#include "platform/screen.h"
#include "platform/screen_registry.h"
#include "platform/timer.h"
#include "support/wait.h"

#include <QVariant>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string_view>

namespace orbkl4::test {

namespace {

const char* ScreenOf(unsigned command) {
    static const std::map<unsigned, const char*> screens = {
        {0x01, "SensorBits"},  {0x02, "Vectors"},  {0x03, "Vectors"},       {0x04, "Quaternions"},
        {0x05, "Quaternions"}, {0x0A, "Matrices"}, {0x0B, "Matrices"},      {0x0C, "QuatVec"},
        {0x0D, "Angles"},      {0x0E, "Angles"},   {0x31, "AnglesAccRate"}, {0x12, "QuatVec"}};
    return screens.at(command);
}

const char* EntryOf(const DecoderRow& row) {
    if (row.command == 0x01 || row.command == 0x31) return "mnuSample";
    return row.isGyro ? "mnuSampleGyro" : "mnuSampleInstant";
}

/// Lets no busy wait of the program last.
std::int32_t HastyTickCount() {
    static std::uint32_t count = 0;
    constexpr std::uint32_t leap = 1000;
    return static_cast<std::int32_t>((count += leap) & 0x3FFFFFFF);
}

std::string Word(const Bytes& packet, std::size_t offset) {
    return std::to_string(packet.at(offset) * 256 + packet.at(offset + 1));
}

/// The word that stands in column `column` (from 0, behind the time) of a row.
std::size_t WordOfColumn(const DecoderRow& row, std::size_t column) {
    constexpr std::size_t pitchYawRoll[] = {1, 2, 0};
    const bool isAngles = row.kinds == "eee";
    return isAngles ? pitchYawRoll[column] : column;
}

/// Whether `text` has digits, and at most one point with up to `decimals` digits behind it.
bool IsPlainNumber(std::string_view text, std::size_t decimals) {
    const std::size_t point = text.find('.');
    const bool hasPoint = point != std::string_view::npos;
    const std::string_view fraction = hasPoint ? text.substr(point + 1) : std::string_view();
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::ranges::all_of(text.substr(0, point), isDigit) &&
           std::ranges::all_of(fraction, isDigit) && fraction.size() <= decimals &&
           text.size() > (hasPoint ? 1U : 0U) && fraction.empty() != hasPoint;
}

/// Whether `text` is a number as it stands in a column behind the time.
bool IsNumberForm(std::string_view text) {
    constexpr std::size_t mostDecimals = 4;
    return !text.empty() && (text.front() == ' ' || text.front() == '-') &&
           IsPlainNumber(text.substr(1), mostDecimals);
}

/// What is wrong with `line` as the row of `packet`, or an empty text.
std::string FaultOfRow(const DecoderRow& row, const Bytes& packet, const std::string& line) {
    std::vector<std::string> columns;
    std::istringstream stream(line);
    for (std::string column; std::getline(stream, column, ',');) columns.push_back(column);
    if (columns.size() != row.kinds.size() + 2) return "a torn row: " + line;
    if (!IsPlainNumber(columns.front(), 2)) return "the row's time: " + line;
    for (std::size_t i = 0; i < row.kinds.size(); ++i) {
        const std::string& text = columns[i + 1];
        const double number = std::strtod(text.c_str(), nullptr);
        if (!IsNumberForm(text) || !IsNumberOf(row, packet, WordOfColumn(row, i), number))
            return "column " + std::to_string(i + 1) + " of the row: " + line;
    }
    if (columns.back() != " " + Word(packet, packet.size() - 4)) return "the row's ticks: " + line;
    return {};
}

}  // namespace

StreamRig::StreamRig() {
    ReplaceTickCount(HastyTickCount);
    AppState = {};
    SampleState = {};
    StartUp();
    // Each kind of word at a scale of its own.
    AppState.MagGainScale = 3277;
    AppState.AccGainScale = 65535;
    AppState.GyroGainScale = 6553;
    AppState.CommPort = 1;
    AppState.CommSettings = "115200,n,8,1";
    surroundings_.LinkPort(1, line_.Path());
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
    Show(*streamCase.row);
    std::string fault = FaultOfPieces(streamCase, streamCase.pieces);
    const std::vector<std::string> story = story_;
    for (const Cutting cutting : {Cutting::Whole, Cutting::Single}) {
        if (!fault.empty()) break;
        fault =
            FaultOfPieces(streamCase, Recut(streamCase.pieces, LengthOf(*streamCase.row), cutting));
        if (fault.empty() && story_ != story) fault = "another cutting, another story";
    }
    return fault.empty() ? fault : screen_->objectName().toStdString() + ": " + fault;
}

void StreamRig::Show(const DecoderRow& row) {
    if (row_ == &row) return;
    row_ = &row;
    if (screen_ == nullptr || screen_->objectName() != QLatin1String(ScreenOf(row.command))) {
        if (screen_ != nullptr) screen_->Unload();
        ShowScreen(ScreenOf(row.command));
        QCoreApplication::processEvents();
        screen_ = FindScreen(ScreenOf(row.command));
        for (auto* timer : screen_->findChildren<Timer*>()) timer->Interval(0);  // no watchdog
    }
    NoteControls(row.isGyro);
    Click();  // a view that has been stopped once doesn't look like a fresh one: dials show 0
    Click();
    line_.Take(1);
}

void StreamRig::NoteControls(bool isGyro) {
    const auto find = [this](QString name, bool twin) {
        return screen_->findChild<QObject*>(twin ? name + QLatin1Char('I') : name);
    };
    port_ =
        screen_->findChild<MSComm*>(isGyro ? QStringLiteral("MSComm1") : QStringLiteral("MSComm2"));
    led_ = find(QStringLiteral("LED"), !isGyro);
    head_.clear();
    for (const char* name : {"txtHeader", "txtTimerTicks", "txtCS"})
        if (const QObject* field = find(QLatin1String(name), !isGyro)) head_.push_back(field);
    if (screen_->objectName() == QLatin1String("Angles")) head_.clear();
    controls_.clear();
    for (const auto* field : screen_->findChildren<TextField*>())
        controls_.push_back({field, "text"});
    for (const auto* slide : screen_->findChildren<CWSlide*>())
        controls_.push_back({slide, "value"});
    for (const auto* dial : screen_->findChildren<CWKnob*>()) controls_.push_back({dial, "value"});
}

void StreamRig::Click() { screen_->Menu(EntryOf(*row_)).trigger(); }

std::string StreamRig::FaultOfPieces(const StreamCase& streamCase,
                                     const std::vector<Piece>& pieces) {
    SampleState = {};
    SampleState.SaveActive = streamCase.saving;
    SampleState.WriteIntervalTicks = streamCase.interval;
    std::ofstream(dataFile_, std::ios::trunc).close();
    savedBytes_ = 0;
    story_.clear();
    StreamOracle oracle(streamCase);
    std::string fault = FaultOfStart();
    for (const Piece& piece : pieces) {
        if (fault.empty() && piece.restart) {
            if (!AllIn(oracle)) return "bytes are missing before a restart";
            Click();
            oracle.Restart();
            fault = FaultOfStart();
        }
        if (!fault.empty()) return fault;
        line_.Send(piece.bytes);
        fault =
            oracle.Takes(piece.bytes) ? FaultOfReply(oracle) : FaultOfWaiting(oracle, piece.settle);
    }
    if (!fault.empty()) return fault;
    if (!AllIn(oracle)) return "bytes too many or too few wait at the end";
    Click();
    return line_.TakeAll().empty() ? "" : "a request too many at the end";
}

std::string StreamRig::FaultOfStart() {
    Click();
    shown_ = Snapshot();
    const Bytes request = line_.Take(1);
    if (request != Bytes{static_cast<std::uint8_t>(row_->command)}) return "the first request";
    return led_->property("value").toBool() ? "the lamp is lit at the start" : "";
}

std::string StreamRig::FaultOfReply(const StreamOracle& oracle) {
    Bytes requests;
    WaitFor([&] {
        const Bytes more = line_.TakeAll();
        requests.insert(requests.end(), more.begin(), more.end());
        return !requests.empty() || boxes_.Count() > 0;
    });
    ++verdicts_.at(static_cast<std::size_t>(oracle.LastVerdict()));
    if (boxes_.Count() > 0) return "a box: " + boxes_.Texts().front();
    if (requests != Bytes{static_cast<std::uint8_t>(row_->command)}) {
        return requests.empty() ? "no request after a reply" : "the wrong request after a reply";
    }
    std::string fault = FaultOfShown(oracle);
    if (fault.empty()) fault = FaultOfSaved(oracle);
    return fault;
}

std::string StreamRig::FaultOfShown(const StreamOracle& oracle) {
    const std::string before = std::exchange(shown_, Snapshot());
    const bool lit = led_->property("value").toBool();
    story_.push_back(shown_ + (lit ? "lit" : "dark"));
    if (lit != oracle.Lit()) return "the lamp";
    const Verdict verdict = oracle.LastVerdict();
    const bool isNew = verdict == Verdict::Shown || verdict == Verdict::Saved;
    if (!isNew) return shown_ == before ? "" : "something is shown of what must not be";
    const Bytes& packet = oracle.OnShow();
    const std::string texts[] = {std::to_string(packet.front()), Word(packet, packet.size() - 4),
                                 Word(packet, packet.size() - 2)};
    for (std::size_t i = 0; i < head_.size(); ++i) {
        if (head_[i]->property("text").toString().toStdString() != texts[i])
            return head_[i]->objectName().toStdString() + " isn't " + texts[i];
    }
    return {};
}

std::string StreamRig::FaultOfSaved(const StreamOracle& oracle) {
    std::ifstream file(dataFile_, std::ios::binary);
    file.seekg(savedBytes_);
    std::string added{std::istreambuf_iterator<char>(file), {}};
    savedBytes_ += static_cast<long>(added.size());
    if (oracle.LastVerdict() != Verdict::Saved)
        return added.empty() ? "" : "a row of what must not be saved: " + added;
    if (!added.ends_with("\r\n") || std::ranges::count(added, '\n') != 1)
        return "not one row is added: " + added;
    added.resize(added.size() - 2);
    return FaultOfRow(*row_, oracle.OnShow(), added);
}

std::string StreamRig::FaultOfWaiting(const StreamOracle& oracle, Settle settle) {
    if (settle == Settle::ByEvents) QCoreApplication::processEvents();
    if (settle == Settle::ByCount && !AllIn(oracle)) return "bytes too many or too few wait";
    return line_.TakeAll().empty() ? "" : "a request before the reply was whole";
}

/// Whether the program gets hold of all bytes that came since the last reply, and no others.
bool StreamRig::AllIn(const StreamOracle& oracle) {
    return WaitFor([&] {
               return static_cast<std::size_t>(port_->InBufferCount()) >= oracle.Waiting();
           }) &&
           static_cast<std::size_t>(port_->InBufferCount()) == oracle.Waiting();
}

std::string StreamRig::Snapshot() const {
    std::string texts;
    for (const auto& [object, property] : controls_)
        texts += object->property(property).toString().toStdString() + ' ';
    return texts;
}

}  // namespace orbkl4::test
