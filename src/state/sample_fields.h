#pragma once

#include "state/sample_state.h"

#include <array>
#include <cstddef>
#include <utility>

/// The fields of `SampleState` in the groups that packets, views and data files share.
namespace orbkl4::fields {

using State = SampleStateRecord;

template <std::size_t count>
using Group = std::array<SampleField, count>;

inline constexpr Group<3> rawMag{&State::RawMag1, &State::RawMag2, &State::RawMag3};
inline constexpr Group<3> rawAcc{&State::RawAcc1, &State::RawAcc2, &State::RawAcc3};
inline constexpr Group<3> rawAngRate{&State::RawAngRate1, &State::RawAngRate2, &State::RawAngRate3};
inline constexpr Group<3> stabMag{&State::StabMagX, &State::StabMagY, &State::StabMagZ};
inline constexpr Group<3> stabAcc{&State::StabAccX, &State::StabAccY, &State::StabAccZ};
inline constexpr Group<3> compAngRate{&State::CompAngRateX, &State::CompAngRateY,
                                      &State::CompAngRateZ};
inline constexpr Group<3> instMag{&State::InstMagX, &State::InstMagY, &State::InstMagZ};
inline constexpr Group<3> instAcc{&State::InstAccX, &State::InstAccY, &State::InstAccZ};
inline constexpr Group<3> instAngRate{&State::InstAngRateX, &State::InstAngRateY,
                                      &State::InstAngRateZ};
inline constexpr Group<4> stabQuat{&State::StabQuat0, &State::StabQuat1, &State::StabQuat2,
                                   &State::StabQuat3};
inline constexpr Group<4> instQuat{&State::InstQuat0, &State::InstQuat1, &State::InstQuat2,
                                   &State::InstQuat3};
inline constexpr Group<2> rollPitch{&State::Roll, &State::Pitch};
inline constexpr Group<1> yaw{&State::Yaw};

namespace detail {

constexpr Group<9> Elements(State::Matrix State::*matrix) {
    return {{{matrix, 0},
             {matrix, 1},
             {matrix, 2},
             {matrix, 3},
             {matrix, 4},
             {matrix, 5},
             {matrix, 6},
             {matrix, 7},
             {matrix, 8}}};
}

}  // namespace detail

inline constexpr Group<9> stabMatrix = detail::Elements(&State::StabMatrix);
inline constexpr Group<9> instMatrix = detail::Elements(&State::InstMatrix);

/// Arrays of one element type, one after another.
template <typename First, std::size_t... sizes>
constexpr auto Joined(const std::array<First, sizes>&... parts) {
    return [&]<std::size_t... row>(std::index_sequence<row...>) {
        constexpr std::size_t total = (sizes + ...);
        const std::array<const First*, total> rows = [&] {
            std::array<const First*, total> found{};
            std::size_t next = 0;
            const auto note = [&](const auto& part) {
                for (const First& item : part) found[next++] = &item;
            };
            (note(parts), ...);
            return found;
        }();
        return std::array<First, total>{*rows[row]...};
    }
    (std::make_index_sequence<(sizes + ...)>{});
}

}  // namespace orbkl4::fields
