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
        EXPECT_EQ(header[4], titles);
    }
}

}  // namespace
}  // namespace orbkl4
