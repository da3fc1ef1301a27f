#include "support/logic/stream_oracle.h"

#include "support/frames.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace orbkl4::test {

namespace {

constexpr std::size_t mostGarbage = 64;
constexpr std::size_t mostCuts = 8;

/// Gives bytes one after the other, 0 when there are none left.
class ByteSource {
  public:
    explicit ByteSource(std::span<const std::uint8_t> data) : data_(data) {}

    bool Empty() const { return data_.empty(); }

    unsigned Next() {
        if (data_.empty()) return 0;
        const unsigned byte = data_.front();
        data_ = data_.subspan(1);
        return byte;
    }

    std::size_t Below(std::size_t limit) { return Next() % limit; }

    Bytes Take(std::size_t count) {
        Bytes bytes(count);
        for (auto& byte : bytes) byte = static_cast<std::uint8_t>(Next());
        return bytes;
    }

  private:
    std::span<const std::uint8_t> data_;
};

std::size_t LengthOf(const DecoderRow& row) { return 5 + 2 * row.kinds.size(); }

enum class Kind { Good, Corrupt, OtherHeader, Garbage };

/// Mostly good packets: after garbage it takes one or two until replies begin at a header again.
constexpr std::array kinds{Kind::Good, Kind::Good,    Kind::Good,        Kind::Good,
                           Kind::Good, Kind::Corrupt, Kind::OtherHeader, Kind::Garbage};

Bytes Segment(ByteSource& source, const DecoderRow& row, Kind kind) {
    if (kind == Kind::Garbage) return source.Take(1 + source.Below(mostGarbage));
    const std::size_t place = kind == Kind::Corrupt ? source.Below(LengthOf(row)) : 0;
    const auto header = kind == Kind::OtherHeader ? source.Next() : row.command;
    Bytes packet = source.Take(LengthOf(row));
    packet[0] = static_cast<std::uint8_t>(header);
    MendChecksum(packet);
    if (kind == Kind::Corrupt) packet[place] ^= static_cast<std::uint8_t>(1U << place % 8);
    return packet;
}

}  // namespace

StreamCase ReadStreamCase(std::span<const std::uint8_t> data) {
    ByteSource source(data);
    StreamCase streamCase{&DecoderRows()[source.Below(DecoderRows().size())], false, 0, {}};
    const unsigned options = source.Next();
    streamCase.saving = options % 2 != 0;
    streamCase.interval = options % 4 == 3 ? 200.0 * source.Next() : 0;
    while (!source.Empty()) {
        const unsigned choice = source.Next();
        const bool awaited = choice / 8 % 2 == 0;
        const Bytes bytes = Segment(source, *streamCase.row, kinds.at(choice % kinds.size()));
        std::set<std::size_t> ends{bytes.size()};
        for (std::size_t cuts = source.Below(mostCuts); cuts > 0; --cuts)
            ends.insert(1 + source.Below(bytes.size()));
        auto from = bytes.begin();
        for (const std::size_t end : ends) {
            const auto to = bytes.begin() + static_cast<std::ptrdiff_t>(end);
            streamCase.pieces.push_back({Bytes(from, to), awaited});
            from = to;
        }
    }
    return streamCase;
}

StreamCase CutSingly(const StreamCase& streamCase) {
    const std::size_t length = LengthOf(*streamCase.row);
    StreamCase cut = streamCase;
    cut.pieces.clear();
    std::size_t waiting = 0;
    for (const auto& [bytes, awaited] : streamCase.pieces) {
        const std::size_t single = std::min(bytes.size(), length - 1 - waiting);
        const auto completing = bytes.begin() + static_cast<std::ptrdiff_t>(single);
        for (auto byte = bytes.begin(); byte != completing; ++byte)
            cut.pieces.push_back({Bytes{*byte}, false});
        if (completing != bytes.end())
            cut.pieces.push_back({Bytes(completing, bytes.end()), awaited});
        waiting = completing == bytes.end() ? waiting + single : 0;
    }
    return cut;
}

bool StreamOracle::Takes(const Bytes& bytes) {
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    if (waiting_.size() < LengthOf(*case_.row)) return false;
    reply_ = std::exchange(waiting_, {});
    verdict_ = Judge();
    if (verdict_ != Verdict::WrongFrame) lit_ = verdict_ != Verdict::BadSum;
    return true;
}

Verdict StreamOracle::Judge() {
    const DecoderRow& row = *case_.row;
    if (reply_.size() != LengthOf(row) || reply_.front() != row.command) return Verdict::WrongFrame;
    const double ticks = reply_[reply_.size() - 4] * 256 + reply_[reply_.size() - 3];
    if (row.isGyro) gyroTicks_ = ticks;
    if (!IsGoodPacket(row, reply_)) return Verdict::BadSum;
    if (!case_.saving) return Verdict::Shown;
    if (gyroTicks_ < lastWritten_) lastWritten_ -= 65536;
    if (ticks - lastWritten_ < case_.interval) return Verdict::Held;
    lastWritten_ = ticks;
    return Verdict::Saved;
}

}  // namespace orbkl4::test
