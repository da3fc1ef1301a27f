#include "simulator/simulator.h"

#include "simulator/worker.h"

#include <utility>

namespace orbkl4sim {

Simulator::Simulator(SimulatorOptions options)
    : worker_(std::make_unique<Worker>(std::move(options))) {}

Simulator::~Simulator() = default;

void Simulator::Start() { worker_->Start(); }

void Simulator::Stop() { worker_->Stop(); }

std::filesystem::path Simulator::DevicePath() const {
    std::filesystem::path path;
    worker_->Do([&] {
        if (worker_->Terminal() != nullptr) path = worker_->Terminal()->Path();
    });
    return path;
}

void Simulator::LinkAs(const std::filesystem::path& link) {
    worker_->Do([&] { worker_->AddLink(link); });
}

void Simulator::LinkAsPort(int number) { LinkAs(PortLinkPath(number)); }

void Simulator::Unplug() {
    worker_->Do([&] { worker_->Unplug(); });
}

void Simulator::Replug() {
    worker_->Do([&] { worker_->Plug(); });
}

void Simulator::ReplugAs(const std::filesystem::path& link) {
    worker_->Do([&] { worker_->PlugAs(link); });
}

void Simulator::SetPower(bool on) {
    worker_->Do([&] { worker_->Wire().SetPower(on, worker_->Now()); });
}

void Simulator::SetStuck(int address, bool stuck) {
    worker_->Do([&] { worker_->Sensor().Memory().SetStuck(address, stuck); });
}

void Simulator::PowerCycle() {
    worker_->Do([&] { worker_->Wire().PowerCycle(worker_->Now()); });
}

void Simulator::SetSilent(bool silent) {
    worker_->Do([&] { worker_->Wire().SetSilent(silent); });
}

void Simulator::SetFlood(bool flood) {
    worker_->Do([&] { worker_->Wire().SetFlood(flood, worker_->Now()); });
}

void Simulator::SetFaults(const FaultRates& faults) {
    worker_->Do([&] { worker_->Wire().Faults().Rates() = faults; });
}

FaultState Simulator::Faults() const {
    FaultState state;
    worker_->Do([&] {
        Line& line = worker_->Wire();
        state = {.rates = line.Faults().Rates(),
                 .silent = line.IsSilent(),
                 .flooding = line.IsFlooding(),
                 .unpowered = !line.IsPowered(),
                 .unplugged = worker_->Terminal() == nullptr,
                 .stuckWords = worker_->Sensor().Memory().Stuck()};
    });
    return state;
}

void Simulator::SetMotion(Motion motion) {
    worker_->Do([&] { worker_->Sensor().SetMotion(std::move(motion)); });
}

void Simulator::SetTemperature(double celsius) {
    worker_->Do([&] { worker_->Sensor().SetTemperature(celsius); });
}

std::uint16_t Simulator::Word(int address) const {
    std::uint16_t word = 0;
    worker_->Do([&] { word = worker_->Sensor().Memory().Word(address); });
    return word;
}

void Simulator::SetWord(int address, std::uint16_t word) {
    worker_->Do([&] { worker_->Sensor().Memory().SetWord(address, word); });
}

void Simulator::ReplyOnceTo(std::uint8_t command, Bytes reply) {
    worker_->Do([&] { worker_->Wire().Script().Queue(command, std::move(reply)); });
}

void Simulator::ReplyTo(std::uint8_t command, Bytes reply) {
    worker_->Do([&] { worker_->Wire().Script().Always(command, std::move(reply)); });
}

void Simulator::FilterReplies(ReplyFilter filter) {
    worker_->Do([&] { worker_->Wire().Script().Filter(std::move(filter)); });
}

void Simulator::ClearReplies() {
    worker_->Do([&] { worker_->Wire().Script().Clear(); });
}

void Simulator::SendUnasked(const Bytes& bytes) {
    worker_->Do([&] { worker_->Wire().SendUnasked(bytes, worker_->Now()); });
}

std::vector<Request> Simulator::Requests() const { return worker_->Log().Requests(); }

Bytes Simulator::Received() const { return worker_->Log().Received(); }

void Simulator::ClearRecord() { worker_->Log().Clear(); }

bool Simulator::WaitForRequests(std::size_t count, std::chrono::milliseconds limit) const {
    return worker_->Log().WaitForRequests(count, limit);
}

}  // namespace orbkl4sim
