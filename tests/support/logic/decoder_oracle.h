#pragma once

#include "acquire/logic/decoders.h"
#include "base/bytes.h"

#include <string>
#include <string_view>
#include <vector>

namespace orbkl4 {

/// What a decoder must do, independent of the packet table: where each word goes, and its kind as a
/// letter: r raw, m magnetic, a acceleration, g angular rate, q quaternion, e angle, u angle
/// without sign, x matrix.
struct DecoderRow {
    Decoder decode;
    unsigned command;
    bool isGyro;
    std::string_view kinds;
    std::vector<double*> fields;  ///< in `SampleState`, in packet order
};

/// All twelve.
const std::vector<DecoderRow>& DecoderRows();

/// Whether `packet`, of the right length and header, is good: its sum holds and, of a matrix, its
/// determinant isn't 0.
bool IsGoodPacket(const DecoderRow& row, const Bytes& packet);

/// Runs the decoder of `row` on `packet`, of the right length, and checks the verdict and every
/// number of `SampleState` by plain arithmetic. Returns what is wrong, or an empty text.
std::string FaultOfDecoder(const DecoderRow& row, const Bytes& packet);

}  // namespace orbkl4
