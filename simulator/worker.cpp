#include "simulator/worker.h"

#include "simulator/eeprom_file.h"

#include <algorithm>
#include <array>
#include <exception>
#include <poll.h>
#include <utility>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace orbkl4sim {

namespace {

/// Lets waits end within a microsecond; the default slack of Linux is 50.
void UsePreciseTimers() {
#ifdef __linux__
    prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
#endif
}

}  // namespace

Simulator::Worker::Worker(SimulatorOptions options)
    : options_(std::move(options)),
      device_(options_.motion, options_.noise, options_.seed),
      line_(device_, options_.paced, options_.seed + 1) {
    line_.Faults().Rates() = options_.faults;
    line_.SetListener([this](const Bytes& request, bool heard) { AddRequest(request, heard); });
    if (!options_.eepromFile.empty()) LoadEeprom(options_.eepromFile, device_.Memory());
    if (options_.baud != 0) device_.Memory().SetWord(address::kBaudRate, BaudCode(options_.baud));
}

void Simulator::Worker::Start() {
    if (thread_.joinable()) return;
    SaveMemory();
    line_.PowerCycle(Now());
    Plug();
    const std::lock_guard guard(mutex_);  // the thread must not run before thread_ is assigned
    stopping_ = false;
    thread_ = std::thread([this] { Run(); });
}

void Simulator::Worker::Stop() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard guard(mutex_);
        stopping_ = true;
    }
    wake_.Wake();
    thread_.join();
    RunTasks();
    Unplug();
}

void Simulator::Worker::Do(const std::function<void()>& task) {
    if (!thread_.joinable() || std::this_thread::get_id() == thread_.get_id()) {
        task();
        return;
    }
    std::packaged_task<void()> packaged(task);
    std::future<void> done = packaged.get_future();
    {
        const std::lock_guard guard(mutex_);
        tasks_.push_back(std::move(packaged));
    }
    wake_.Wake();
    done.get();
}

void Simulator::Worker::Plug() {
    if (terminal_ != nullptr) return;
    line_.Reset(Now());
    auto terminal = std::make_unique<PseudoTerminal>();
    std::deque<PortLink> links;
    for (const std::filesystem::path& link : linkPaths_) links.emplace_back(link, terminal->Path());
    terminal_ = std::move(terminal);
    links_ = std::move(links);
}

void Simulator::Worker::PlugAs(const std::filesystem::path& link) {
    Unplug();
    const auto before = std::exchange(linkPaths_, {link});
    try {
        Plug();
    } catch (...) {
        linkPaths_ = before;
        throw;
    }
}

void Simulator::Worker::Unplug() {
    links_.clear();
    terminal_.reset();
    line_.Reset(Now());
}

void Simulator::Worker::AddLink(const std::filesystem::path& link) {
    if (terminal_ != nullptr) links_.emplace_back(link, terminal_->Path());
    linkPaths_.push_back(link);
}

void Simulator::Worker::Run() {
    UsePreciseTimers();
    while (true) {
        {
            const std::lock_guard guard(mutex_);
            if (stopping_) return;
        }
        Wait();
        RunTasks();
        if (terminal_ != nullptr) ReceiveAll();
        SendDue();
        SaveMemory();
    }
}

/// Sleeps until the host sends or closes, a task is added or bytes are due.
void Simulator::Worker::Wait() {
    const bool plugged = terminal_ != nullptr;
    std::array<pollfd, 3> watched{
        pollfd{wake_.Descriptor(), POLLIN, 0},
        pollfd{plugged ? terminal_->Descriptor() : -1, POLLIN, 0},
        pollfd{plugged ? terminal_->WatchDescriptor() : -1, POLLIN, 0},
    };
    const Time now = Now();
    const auto due = line_.NextDue(now);
    const Time left = std::max(due.value_or(now) - now, Time{});
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
#ifdef __linux__
    const timespec limit{seconds.count(), (left - seconds).count()};
    ppoll(watched.data(), watched.size(), due ? &limit : nullptr, nullptr);
#else
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(left).count();
    poll(watched.data(), watched.size(), due ? static_cast<int>(wait) : -1);
#endif
    if (watched[0].revents != 0) wake_.Clear();
    if (watched[2].revents != 0) terminal_->ClearExclusiveIfClosed();
}

void Simulator::Worker::RunTasks() {
    while (true) {
        std::packaged_task<void()> task;
        {
            const std::lock_guard guard(mutex_);
            if (tasks_.empty()) return;
            task = std::move(tasks_.front());
            tasks_.pop_front();
        }
        task();
    }
}

void Simulator::Worker::ReceiveAll() {
    const Bytes bytes = terminal_->Read();
    if (bytes.empty()) return;
    hostBaud_ = terminal_->HostBaud();
    if (options_.record) record_.Add(bytes);
    line_.Receive(bytes, Now(), hostBaud_);
}

void Simulator::Worker::SendDue() {
    for (const Bytes& bytes : line_.TakeDue(Now())) {
        if (terminal_ != nullptr && line_.Accepts(terminal_->HostBaud())) terminal_->Write(bytes);
    }
}

void Simulator::Worker::SaveMemory() {
    const std::uint64_t changes = device_.Memory().Changes();
    if (options_.eepromFile.empty() || changes == savedChanges_) return;
    savedChanges_ = changes;
    try {
        SaveEeprom(options_.eepromFile, device_.Memory());
    } catch (const std::exception& error) {
        if (options_.onError) options_.onError(error.what());
    }
}

void Simulator::Worker::AddRequest(const Bytes& request, bool heard) {
    const Request added{request, std::chrono::steady_clock::now(), hostBaud_, heard};
    if (options_.record) record_.Add(added);
    if (options_.onRequest) options_.onRequest(added);
}

}  // namespace orbkl4sim
