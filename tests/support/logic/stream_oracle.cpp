#include "support/logic/stream_oracle.h"

#include "support/frames.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace orbkl4::test {

namespace {

constexpr PacketKind packetKinds[] = {
    {0x01, true, 9},  {0x02, true, 9},        {0x03, false, 9},      {0x04, false, 4},
    {0x05, true, 4},  {0x0A, false, 9, true}, {0x0B, true, 9, true}, {0x0C, true, 13},
    {0x0D, false, 3}, {0x0E, true, 3},        {0x12, false, 13},     {0x31, true, 9}};

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

std::size_t LengthOf(const PacketKind& kind) { return 5 + 2 * kind.words; }

std::int64_t WordIn(const Bytes& packet, std::size_t index) {
    return packet[1 + 2 * index] * 256 + packet[2 + 2 * index];
}

/// Whether header and words but the last add up to that one, modulo 65536.
bool SumHolds(const Bytes& packet) {
    const std::size_t last = packet.size() / 2 - 1;
    std::int64_t sum = packet[0];
    for (std::size_t i = 0; i < last; ++i) sum += WordIn(packet, i);
    return sum % 65536 == WordIn(packet, last);
}

/// Whether the nine words, by columns, are a matrix that can't be inverted.
bool IsSingular(const Bytes& packet) {
    const auto m = [&](std::size_t row, std::size_t column) -> std::int64_t {
        return static_cast<std::int16_t>(WordIn(packet, 3 * column + row));
    };
    return m(0, 0) * (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) -
               m(0, 1) * (m(1, 0) * m(2, 2) - m(1, 2) * m(2, 0)) +
               m(0, 2) * (m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0)) ==
           0;
}

enum class Segment { Good, Corrupt, OtherHeader, Garbage };

/// Mostly good packets: after garbage it takes one or two until replies begin at a header again.
constexpr std::array segments{Segment::Good,        Segment::Good,   Segment::Good,
                              Segment::Good,        Segment::Good,   Segment::Corrupt,
                              Segment::OtherHeader, Segment::Garbage};

Bytes MakeSegment(ByteSource& source, const PacketKind& kind, Segment segment) {
    if (segment == Segment::Garbage) return source.Take(1 + source.Below(mostGarbage));
    const std::size_t place = segment == Segment::Corrupt ? source.Below(LengthOf(kind)) : 0;
    const auto header = segment == Segment::OtherHeader ? source.Next() : kind.command;
    Bytes packet = source.Take(LengthOf(kind));
    packet[0] = static_cast<std::uint8_t>(header);
    MendChecksum(packet);
    if (segment == Segment::Corrupt) packet[place] ^= static_cast<std::uint8_t>(1U << place % 8);
    return packet;
}

}  // namespace

StreamCase ReadStreamCase(std::span<const std::uint8_t> data) {
    ByteSource source(data);
    StreamCase streamCase{&packetKinds[source.Below(std::size(packetKinds))], false, 0, {}};
    const unsigned options = source.Next();
    streamCase.saving = options % 2 != 0;
    streamCase.interval = options % 4 == 3 ? 200.0 * source.Next() : 0;
    while (!source.Empty()) {
        const unsigned choice = source.Next();
        const bool awaited = choice / 8 % 2 == 0;
        const Bytes bytes =
            MakeSegment(source, *streamCase.kind, segments.at(choice % segments.size()));
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
    const std::size_t length = LengthOf(*streamCase.kind);
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
    if (waiting_.size() < LengthOf(*case_.kind)) return false;
    reply_ = std::exchange(waiting_, {});
    verdict_ = Judge();
    if (verdict_ != Verdict::WrongFrame) lit_ = verdict_ != Verdict::BadSum;
    return true;
}

Verdict StreamOracle::Judge() {
    const PacketKind& kind = *case_.kind;
    if (reply_.size() != LengthOf(kind) || reply_.front() != kind.command)
        return Verdict::WrongFrame;
    const double ticks = reply_[reply_.size() - 4] * 256 + reply_[reply_.size() - 3];
    if (kind.isGyro) gyroTicks_ = ticks;
    if (!SumHolds(reply_) || (kind.isMatrix && IsSingular(reply_))) return Verdict::BadSum;
    if (!case_.saving) return Verdict::Shown;
    if (gyroTicks_ < lastWritten_) lastWritten_ -= 65536;
    if (ticks - lastWritten_ < case_.interval) return Verdict::Held;
    lastWritten_ = ticks;
    return Verdict::Saved;
}

}  // namespace orbkl4::test
