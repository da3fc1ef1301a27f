#include "support/logic/stream_oracle.h"

#include <utility>

namespace orbkl4::test {

void StreamOracle::Restart() {
    waiting_.clear();
    lit_ = false;
    onShow_.clear();
    lastWritten_ = 0;
}

bool StreamOracle::Takes(const Bytes& bytes) {
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    if (waiting_.size() < LengthOf(row_)) return false;
    const Bytes reply = std::exchange(waiting_, {});
    verdict_ = Judge(reply);
    if (verdict_ != Verdict::WrongFrame) lit_ = verdict_ != Verdict::BadSum;
    if (verdict_ == Verdict::Shown || verdict_ == Verdict::Saved) onShow_ = reply;
    return true;
}

Verdict StreamOracle::Judge(const Bytes& reply) {
    if (reply.size() != LengthOf(row_) || reply.front() != row_.command) return Verdict::WrongFrame;
    const double ticks = reply[reply.size() - 4] * 256 + reply[reply.size() - 3];
    if (row_.isGyro) gyroTicks_ = ticks;
    if (!IsGoodPacket(row_, reply)) return Verdict::BadSum;
    if (!saving_) return Verdict::Shown;
    if (gyroTicks_ < lastWritten_) lastWritten_ -= 65536;
    if (ticks - lastWritten_ < interval_) return Verdict::Held;
    lastWritten_ = ticks;
    return Verdict::Saved;
}

}  // namespace orbkl4::test
