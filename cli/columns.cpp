#include "cli/columns.h"

#include <algorithm>
#include <array>

namespace orbkl4::cli {

namespace {

template <std::size_t count>
using Names = std::array<std::string_view, count>;

template <std::size_t count>
constexpr std::array<Column, count> Named(const Names<count>& names,
                                          const fields::Group<count>& group,
                                          std::string_view unit = "") {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        return std::array<Column, count>{Column{names[i], unit, group[i]}...};
    }
    (std::make_index_sequence<count>{});
}

constexpr Names<3> mag{"mag_x", "mag_y", "mag_z"};
constexpr Names<3> acc{"acc_x", "acc_y", "acc_z"};
constexpr Names<3> rate{"rate_x", "rate_y", "rate_z"};
constexpr Names<4> quat{"quat_0", "quat_1", "quat_2", "quat_3"};
constexpr Names<9> matrix{"m11", "m21", "m31", "m12", "m22", "m32", "m13", "m23", "m33"};

/// One for each field that a sample can have. Fields, accelerations and rates are in the unit that
/// the sensor's gain scales give them.
constexpr auto allColumns = fields::Joined(
    Named({"raw_mag_1", "raw_mag_2", "raw_mag_3"}, fields::rawMag),
    Named({"raw_acc_1", "raw_acc_2", "raw_acc_3"}, fields::rawAcc),
    Named({"raw_rate_1", "raw_rate_2", "raw_rate_3"}, fields::rawAngRate),
    Named(mag, fields::stabMag), Named(acc, fields::stabAcc), Named(rate, fields::compAngRate),
    Named(mag, fields::instMag), Named(acc, fields::instAcc), Named(rate, fields::instAngRate),
    Named(quat, fields::stabQuat), Named(quat, fields::instQuat), Named(matrix, fields::stabMatrix),
    Named(matrix, fields::instMatrix), Named({"roll_deg", "pitch_deg"}, fields::rollPitch, "deg"),
    Named({"yaw_deg"}, fields::yaw, "deg"));

constexpr const Column* ColumnOf(const SampleField& field) {
    return std::ranges::find(allColumns, field, &Column::field);
}

static_assert(std::ranges::all_of(samplePackets,
                                  [](const SamplePacket& packet) {
                                      return std::ranges::all_of(
                                          packet.words, [](const PacketWord& word) {
                                              return ColumnOf(word.field) != allColumns.end();
                                          });
                                  }),
              "every field of a packet has a column");

}  // namespace

std::vector<Column> ValueColumns(const SamplePacket& packet) {
    std::vector<Column> columns;
    for (const PacketWord& word : packet.words) columns.push_back(*ColumnOf(word.field));
    return columns;
}

}  // namespace orbkl4::cli
