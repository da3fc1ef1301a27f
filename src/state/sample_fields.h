#pragma once

#include "state/sample_state.h"

#include <array>
#include <cstddef>
#include <utility>

namespace orbkl4 {

/// Names one number of a `Sample`, so that tables of fields can be written.
class SampleField {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): rows of tables name the member alone
    constexpr SampleField(double Sample::*member) : member_(member) {}
    constexpr SampleField(Sample::Matrix Sample::*matrix, std::size_t element)
        : matrix_(matrix), element_(element) {}

    /// The number itself in `sample`.
    constexpr double& In(Sample& sample) const {
        return matrix_ != nullptr ? (sample.*matrix_)[element_] : sample.*member_;
    }
    constexpr double In(const Sample& sample) const {
        return matrix_ != nullptr ? (sample.*matrix_)[element_] : sample.*member_;
    }

    constexpr bool operator==(const SampleField&) const = default;

  private:
    double Sample::*member_ = nullptr;
    Sample::Matrix Sample::*matrix_ = nullptr;
    std::size_t element_ = 0;
};

/// The fields of a sample in the groups that packets, views and data files share.
namespace fields {

template <std::size_t count>
using Group = std::array<SampleField, count>;

inline constexpr Group<3> rawMag{&Sample::RawMag1, &Sample::RawMag2, &Sample::RawMag3};
inline constexpr Group<3> rawAcc{&Sample::RawAcc1, &Sample::RawAcc2, &Sample::RawAcc3};
inline constexpr Group<3> rawAngRate{&Sample::RawAngRate1, &Sample::RawAngRate2,
                                     &Sample::RawAngRate3};
inline constexpr Group<3> stabMag{&Sample::StabMagX, &Sample::StabMagY, &Sample::StabMagZ};
inline constexpr Group<3> stabAcc{&Sample::StabAccX, &Sample::StabAccY, &Sample::StabAccZ};
inline constexpr Group<3> compAngRate{&Sample::CompAngRateX, &Sample::CompAngRateY,
                                      &Sample::CompAngRateZ};
inline constexpr Group<3> instMag{&Sample::InstMagX, &Sample::InstMagY, &Sample::InstMagZ};
inline constexpr Group<3> instAcc{&Sample::InstAccX, &Sample::InstAccY, &Sample::InstAccZ};
inline constexpr Group<3> instAngRate{&Sample::InstAngRateX, &Sample::InstAngRateY,
                                      &Sample::InstAngRateZ};
inline constexpr Group<4> stabQuat{&Sample::StabQuat0, &Sample::StabQuat1, &Sample::StabQuat2,
                                   &Sample::StabQuat3};
inline constexpr Group<4> instQuat{&Sample::InstQuat0, &Sample::InstQuat1, &Sample::InstQuat2,
                                   &Sample::InstQuat3};
inline constexpr Group<2> rollPitch{&Sample::Roll, &Sample::Pitch};
inline constexpr Group<1> yaw{&Sample::Yaw};

namespace detail {

constexpr Group<9> Elements(Sample::Matrix Sample::*matrix) {
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

inline constexpr Group<9> stabMatrix = detail::Elements(&Sample::StabMatrix);
inline constexpr Group<9> instMatrix = detail::Elements(&Sample::InstMatrix);

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

}  // namespace fields

}  // namespace orbkl4
