#include "cli/recording.h"

#include "cli/progress.h"
#include "cli/record_file.h"
#include "cli/sensor_watch.h"
#include "cli/thinner.h"

#include <QJsonDocument>

#include <optional>
#include <random>
#include <utility>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

/// How a recording may end but by an error.
enum class Ending : std::uint8_t { Samples, Seconds, Signal, ReaderGone };

constexpr const char* NameOf(Ending ending) {
    switch (ending) {
        case Ending::Samples: return "samples";
        case Ending::Seconds: return "seconds";
        case Ending::Signal: return "signal";
        case Ending::ReaderGone: break;
    }
    return "reader-gone";
}

ExitCode ExitOf(Ending ending, const RecordOptions& options) {
    const bool unlimited = !options.samples && !options.seconds;
    switch (ending) {
        case Ending::Signal: return unlimited ? ExitCode::Done : ExitCode::No;
        case Ending::Seconds: return options.samples ? ExitCode::No : ExitCode::Done;
        default: return ExitCode::Done;
    }
}

/// Takes the wall clock once, and goes on by the monotonic one.
class TimeBase {
  public:
    Clock::time_point Start() const { return start_; }

    microseconds SinceStart(Clock::time_point time) const {
        return std::chrono::duration_cast<microseconds>(time - start_);
    }

    microseconds Unix(Clock::time_point time) const { return unixStart_ + SinceStart(time); }

  private:
    Clock::time_point start_ = Clock::now();
    microseconds unixStart_ = std::chrono::duration_cast<microseconds>(
        std::chrono::system_clock::now().time_since_epoch());
};

Clock::time_point DeadlineOf(const RecordOptions& options, Clock::time_point start) {
    if (!options.seconds) return Clock::time_point::max();
    return start + std::chrono::duration_cast<Clock::duration>(
                       std::chrono::duration<double>(*options.seconds));
}

double TicksPerRow(const RecordOptions& options, const RecordedSensor& sensor) {
    if (!options.rate) return 0;
    constexpr double millisecondsPerSecond = 1000;
    if (sensor.tickIntervalMilliseconds > 0)
        return millisecondsPerSecond / *options.rate / sensor.tickIntervalMilliseconds;
    throw CliError(Failure::Usage, "the sensor's ticks have no length, so --rate can't be kept",
                   "set its timer words, or record all samples");
}

/// One recording of one sensor.
class Recording {
  public:
    /// `target`: that of `options` with the time filled in.
    Recording(const Context& context, const RecordOptions& options, const Target& target,
              Progress& progress, Source source);

    /// Records to the end.
    ExitCode Run();

  private:
    Ending Loop();
    std::optional<Ending> Step();
    std::optional<Ending> Keep(Clock::time_point received);
    std::optional<Ending> Miss(Reply::Kind kind, Clock::time_point now);
    void StartFile(const Target& target);
    void StartPublishing();
    void ReportNews();
    void BeginGap(const char* why);
    void EndGap(Clock::time_point end);
    std::optional<Ending> GetOverLoss(const CliError& error);
    QJsonObject Finish(const char* ended);

    const Context& context_;
    const RecordOptions& options_;
    Progress& progress_;
    std::optional<Session> session_;
    const RecordedSensor sensor_;
    const Layout layout_;
    Thinner thinner_;
    RowSink sink_;
    const TimeBase time_;
    const Clock::time_point deadline_;
    std::optional<RecordFile> file_;
    std::optional<Publisher> publisher_;
    std::string message_;  ///< keeps its memory from sample to sample
    Sample sample_;
    Tally tally_;
    Clock::time_point lastSample_;
    const char* gap_ = nullptr;  ///< why no samples come
};

Recording::Recording(const Context& context, const RecordOptions& options, const Target& target,
                     Progress& progress, Source source)
    : context_(context),
      options_(options),
      progress_(progress),
      session_(std::move(source.session)),
      sensor_(std::move(source.sensor)),
      layout_(*options.channel),
      thinner_(TicksPerRow(options, sensor_)),
      sink_(target, *options.format, layout_),
      deadline_(DeadlineOf(options, time_.Start())),
      lastSample_(time_.Start()) {
    progress_.Begin(target.path);
    if (!target.path.empty()) StartFile(target);
    if (options.broker) StartPublishing();
}

void Recording::StartFile(const Target& target) {
    try {
        file_.emplace(target.path,
                      Described(sensor_, *options_.channel, options_.format->columns(layout_)),
                      time_.Unix(time_.Start()), target.existing == Existing::Append);
        file_->Write(tally_, {}, {});
    } catch (const CliError&) {
        sink_.Withdraw();
        throw;
    }
}

void Recording::StartPublishing() {
    PublisherSettings settings = *options_.broker;
    const std::string serialNumber = std::to_string(sensor_.serialNumber);
    if (settings.topic.empty())
        settings.topic = "orb-kl4/" + serialNumber + "/" + std::string(layout_.channel.name);
    settings.clientName = "orb-kl4-" + serialNumber + "-" + std::to_string(std::random_device()());
    const auto meta = Described(sensor_, layout_.channel, JsonColumns(layout_));
    settings.meta = QJsonDocument(meta).toJson(QJsonDocument::Compact).toStdString();
    publisher_.emplace(std::move(settings));
}

ExitCode Recording::Run() {
    try {
        const Ending ending = Loop();
        const QJsonObject document = Finish(NameOf(ending));
        if (context_.output.Json()) context_.output.Show("orb-kl4 recording", document, {});
        return ExitOf(ending, options_);
    } catch (const CliError& error) {
        try {
            Finish(error.Code());
        } catch (const CliError&) {
            // The first error is the one to report.
        }
        throw;
    }
}

Ending Recording::Loop() {
    std::optional<Ending> ending;
    while (!ending) {
        try {
            ending = Step();
        } catch (const CliError& error) {
            if (error.Kind() == Failure::Interrupted) return Ending::Signal;
            if (error.Kind() != Failure::LineGone) throw;
            ending = GetOverLoss(error);
        }
    }
    return *ending;
}

/// Asks for a sample; how the recording ends with it, if it does.
std::optional<Ending> Recording::Step() {
    if (Clock::now() >= deadline_) return Ending::Seconds;
    const Reply reply = session_->TakeSample(layout_.packet, sensor_.gainScales, sample_);
    const auto ending =
        reply.kind == Reply::Kind::Good ? Keep(reply.received) : Miss(reply.kind, Clock::now());
    progress_.Show(tally_);
    ReportNews();
    return ending;
}

/// Counts a reply that is bad or missing.
std::optional<Ending> Recording::Miss(Reply::Kind kind, Clock::time_point now) {
    constexpr auto longestWithout = 1s;
    const bool bad = kind == Reply::Kind::Bad;
    ++(bad ? tally_.badReplies : tally_.timeouts);
    if (!bad || now - lastSample_ >= longestWithout)
        BeginGap(CliError(bad ? Failure::BadAnswer : Failure::NoAnswer, "").Code());
    return std::nullopt;
}

/// Writes the present sample where it is picked.
std::optional<Ending> Recording::Keep(Clock::time_point received) {
    if (received > deadline_) return Ending::Seconds;
    EndGap(received);
    lastSample_ = received;
    if (publisher_) publisher_->SetFlowing(true);
    const TimedSample timed{sample_, time_.Unix(received), time_.SinceStart(received),
                            tally_.samples++};
    const double ticks = SideFields(layout_.packet.side).ticks.In(sample_);
    if (!thinner_.Picks(static_cast<std::uint16_t>(ticks))) return std::nullopt;
    if (!sink_.Write(timed)) return Ending::ReaderGone;
    ++tally_.rows;
    if (publisher_) {
        FormatJson(layout_, timed, message_);
        publisher_->Publish(message_);
    }
    if (options_.samples && tally_.rows >= *options_.samples) return Ending::Samples;
    return std::nullopt;
}

void Recording::ReportNews() {
    if (!publisher_) return;
    if (const auto news = publisher_->News()) progress_.Message(*news);
}

void Recording::BeginGap(const char* why) {
    gap_ = why;
    if (publisher_) publisher_->SetFlowing(false);
}

void Recording::EndGap(Clock::time_point end) {
    if (gap_ == nullptr) return;
    tally_.Note({time_.Unix(lastSample_), time_.Unix(end), gap_});
    gap_ = nullptr;
    thinner_.Restart();
}

/// Waits for the sensor, whose line has gone.
std::optional<Ending> Recording::GetOverLoss(const CliError& error) {
    BeginGap(error.Code());
    if (!options_.reconnect) throw CliError(error);
    session_.reset();
    const std::string sensor = "sensor " + std::to_string(sensor_.serialNumber);
    progress_.Message(std::string(error.what()) + "; waiting for " + sensor);
    try {
        session_ = AwaitReturn(context_.options.sensor, sensor_.serialNumber, deadline_);
    } catch (const CliError& interrupted) {
        if (interrupted.Kind() == Failure::Interrupted) return Ending::Signal;
        throw;
    }
    if (!session_) return Ending::Seconds;
    progress_.Message(sensor + " is back on " + session_->SerialLine().Name());
    return std::nullopt;
}

/// Ends all that runs; returns what the file beside the recording says then, if there is one.
QJsonObject Recording::Finish(const char* ended) {
    const auto now = Clock::now();
    EndGap(now);
    progress_.End(tally_);
    if (publisher_) publisher_->Finish();
    ReportNews();
    if (!file_) return {};
    if (publisher_)
        file_->Add("mqtt", QJsonObject{{"sent", static_cast<qint64>(publisher_->Sent())},
                                       {"dropped", static_cast<qint64>(publisher_->Dropped())}});
    return file_->Write(tally_, QLatin1String(ended), time_.Unix(now));
}

}  // namespace

ExitCode Record(const Context& context, const RecordOptions& options) {
    // Refused at once, but named by the time at which the recording begins.
    RecordFile::Permit(WithTime(options.target));
    const SensorChoice& choice = context.options.sensor;
    Progress progress(context.output, !options.target.path.empty());
    const auto report = [&](const std::string& reason) {
        progress.Message("waiting for the sensor: " + reason);
    };
    try {
        Source source = options.wait ? AwaitSource(choice, report) : OpenSource(choice);
        const Target target = WithTime(options.target);
        RecordFile::Permit(target);
        return Recording(context, options, target, progress, std::move(source)).Run();
    } catch (const CliError& error) {
        if (error.Kind() != Failure::Interrupted) throw;
        return ExitOf(Ending::Signal, options);
    }
}

}  // namespace orbkl4::cli
