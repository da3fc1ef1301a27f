#include "acquire/logic/file_kinds.h"

#include <gtest/gtest.h>

#include <vector>

namespace orbkl4 {
namespace {

TEST(FileHeader, EndsInTheTitlesOfItsKind) {
    const std::pair<const char*, const char*> cases[] = {
        {"Sensor Bits",
         "Time(Seconds),Mag1,Mag2,Mag3,Acc1,Acc2,Acc3,AngRate1,AngRate2,AngRate3,TimerTicks"},
        {"Vectors",
         "Time(Seconds),MagX,MagY,MagZ,AccX,AccY,AccZ,AngRateX,AngRateY,AngRateZ,TimerTicks"},
        {"Quaternions", "Time(Seconds),Quat0,Quat1,Quat2,Quat3,TimerTicks"},
        {"Matrix", "Time(Seconds),M11,M21,M31,M12,M22,M32,M13,M23,M33,TimerTicks"},
        {"Angles", "Time(Seconds),Pitch,Yaw,Roll,TimerTicks"},
        {"QuatVecs",
         "Time(Seconds),Quat0,Quat1,Quat2,Quat3,MagX,MagY,MagZ,AccX,AccY,AccZ,AngRateX,AngRateY,"
         "AngRateZ,TimerTicks"},
        {"AnglesAccRateVector",
         "Time(Seconds),Roll,Pitch,Yaw,AccX,AccY,AccZ,AngRateX,AngRateY,AngRateZ,TimerTicks"},
    };
    for (const auto& [kind, titles] : cases) {
        const std::vector<std::string> header = FileHeader(kind, "2.0.4", "03.02.24", "17:05:09");
        ASSERT_EQ(header.size(), 5) << kind;
        EXPECT_EQ(header[3], kind);
        EXPECT_EQ(header[4], titles);
    }
    EXPECT_EQ(FileHeader("Pressure", "v", "d", "t").size(), 4);
}

TEST(FileRow, MatrixGoesColumnByColumn) {
    Sample sample;
    sample.StabMatrix = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    sample.InstMatrix = {-1, 0, 0.25, -0.25, 5, 6, 7, 8, -0.0};
    sample.TicksInstant = 65535;
    std::string row;
    FormatFileRow(FileKind::Matrix, Side::Gyro, sample, "0", row);
    EXPECT_EQ(row, "0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0");
    FormatFileRow(FileKind::Matrix, Side::Instant, sample, "10.5", row);
    EXPECT_EQ(row, "10.5,-1, 0, .25,-.25, 5, 6, 7, 8, 0, 65535");
}

}  // namespace
}  // namespace orbkl4
