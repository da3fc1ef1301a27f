#pragma once

#include "simulator/simulator.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace orbkl4sim {

/// The requests and bytes received; safe to use from any thread.
class Record {
  public:
    void Add(Request request) {
        const std::lock_guard guard(mutex_);
        requests_.push_back(std::move(request));
        requestAdded_.notify_all();
    }

    void Add(const Bytes& bytes) {
        const std::lock_guard guard(mutex_);
        received_.insert(received_.end(), bytes.begin(), bytes.end());
    }

    void Clear() {
        const std::lock_guard guard(mutex_);
        requests_.clear();
        received_.clear();
    }

    std::vector<Request> Requests() const {
        const std::lock_guard guard(mutex_);
        return requests_;
    }

    Bytes Received() const {
        const std::lock_guard guard(mutex_);
        return received_;
    }

    bool WaitForRequests(std::size_t count, std::chrono::milliseconds limit) const {
        std::unique_lock lock(mutex_);
        return requestAdded_.wait_for(lock, limit, [&] { return requests_.size() >= count; });
    }

  private:
    mutable std::mutex mutex_;
    mutable std::condition_variable requestAdded_;
    std::vector<Request> requests_;
    Bytes received_;
};

}  // namespace orbkl4sim
