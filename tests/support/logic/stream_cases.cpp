#include "support/logic/stream_cases.h"

#include "support/frames.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace orbkl4::test {

namespace {

constexpr std::size_t mostRubbish = 64;
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

enum class Kind { Good, Spoilt, OtherHeader, Rubbish };

/// Mostly good packets: after rubbish it takes one or two until replies begin at a header again.
constexpr std::array kinds{Kind::Good, Kind::Good,   Kind::Good,        Kind::Good,
                           Kind::Good, Kind::Spoilt, Kind::OtherHeader, Kind::Rubbish};

Bytes Segment(ByteSource& source, const DecoderRow& row, Kind kind) {
    if (kind == Kind::Rubbish) return source.Take(1 + source.Below(mostRubbish));
    const std::size_t place = kind == Kind::Spoilt ? source.Below(LengthOf(row)) : 0;
    const auto header = kind == Kind::OtherHeader ? source.Next() : row.command;
    Bytes packet = source.Take(LengthOf(row));
    packet[0] = static_cast<std::uint8_t>(header);
    MendChecksum(packet);
    if (kind == Kind::Spoilt) packet[place] ^= static_cast<std::uint8_t>(1U << place % 8);
    return packet;
}

/// `bytes` cut at `places`, in order, each of them inside.
void AppendCut(std::vector<Piece>& pieces, const Bytes& bytes, std::vector<std::size_t> places,
               const Piece& like) {
    places.push_back(0);
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());
    places.push_back(bytes.size());
    for (std::size_t i = 0; i + 1 < places.size(); ++i) {
        const auto at = [&](std::size_t place) {
            return bytes.begin() + static_cast<std::ptrdiff_t>(place);
        };
        pieces.push_back(
            {Bytes(at(places[i]), at(places[i + 1])), like.settle, like.restart && i == 0});
    }
}

std::vector<std::size_t> Places(std::size_t size, Cutting cutting, std::size_t length) {
    std::vector<std::size_t> places;
    if (cutting == Cutting::Single)
        for (std::size_t place = 1; place < std::min(size, length); ++place)
            places.push_back(place);
    return places;
}

}  // namespace

StreamCase ReadStreamCase(std::span<const std::uint8_t> data) {
    ByteSource source(data);
    StreamCase streamCase{&DecoderRows()[source.Below(DecoderRows().size())], false, 0, {}};
    const unsigned options = source.Next();
    streamCase.saving = options % 2 != 0;
    streamCase.interval = options % 4 == 3 ? 200.0 * source.Next() : 0;
    constexpr unsigned joined = 3;
    std::vector<Piece>& pieces = streamCase.pieces;
    while (!source.Empty()) {
        const unsigned choice = source.Next();
        const unsigned settle = choice / 8 % 4;
        const Piece like{{}, static_cast<Settle>(settle % joined), choice / 32 == 7};
        std::vector<std::size_t> places(source.Below(mostCuts));
        for (std::size_t& place : places) place = source.Next();
        Bytes bytes = Segment(source, *streamCase.row, kinds.at(choice % kinds.size()));
        for (std::size_t& place : places) place %= bytes.size();
        if (settle == joined && !pieces.empty()) {
            // In one write with the last of what came before.
            Bytes& last = pieces.back().bytes;
            for (std::size_t& place : places) place += last.size();
            bytes.insert(bytes.begin(), last.begin(), last.end());
            pieces.pop_back();
        }
        AppendCut(pieces, bytes, std::move(places), like);
    }
    return streamCase;
}

std::vector<Piece> Recut(const std::vector<Piece>& pieces, std::size_t length, Cutting cutting) {
    std::vector<Piece> recut;
    Piece reply;
    const auto end = [&] {
        if (!reply.bytes.empty())
            AppendCut(recut, reply.bytes, Places(reply.bytes.size(), cutting, length), reply);
        reply = {};
    };
    for (const Piece& piece : pieces) {
        if (piece.restart) {
            end();
            reply.restart = true;
        }
        reply.bytes.insert(reply.bytes.end(), piece.bytes.begin(), piece.bytes.end());
        if (reply.bytes.size() >= length) end();
    }
    end();
    return recut;
}

}  // namespace orbkl4::test
