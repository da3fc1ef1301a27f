#include "datafiles/logic/file_kinds.h"

#include <gtest/gtest.h>

#include <vector>

namespace orbkl4 {
namespace {

using State = SampleStateRecord;
using Fields = std::vector<double State::*>;

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
        const std::vector<std::string> header = FileHeader(kind, "03.02.24", "17:05:09");
        ASSERT_EQ(header.size(), 5) << kind;
        EXPECT_EQ(header[3], kind);
        EXPECT_EQ(header[4], titles);
    }
    EXPECT_EQ(FileHeader("Pressure", "d", "t").size(), 4);
}

TEST(FileRow, TakesEachValueFromItsField) {
    const Fields stabQuat = {&State::StabQuat0, &State::StabQuat1, &State::StabQuat2,
                             &State::StabQuat3};
    const Fields instQuat = {&State::InstQuat0, &State::InstQuat1, &State::InstQuat2,
                             &State::InstQuat3};
    const Fields stabMagAcc = {&State::StabMagX, &State::StabMagY, &State::StabMagZ,
                               &State::StabAccX, &State::StabAccY, &State::StabAccZ};
    const Fields instAcc = {&State::InstAccX, &State::InstAccY, &State::InstAccZ};
    const Fields instMag = {&State::InstMagX, &State::InstMagY, &State::InstMagZ};
    const Fields compRate = {&State::CompAngRateX, &State::CompAngRateY, &State::CompAngRateZ};
    const Fields instRate = {&State::InstAngRateX, &State::InstAngRateY, &State::InstAngRateZ};
    const Fields pitchYawRoll = {&State::Pitch, &State::Yaw, &State::Roll};
    const Fields rollPitchYaw = {&State::Roll, &State::Pitch, &State::Yaw};
    const Fields raw = {&State::RawMag1,     &State::RawMag2,     &State::RawMag3,
                        &State::RawAcc1,     &State::RawAcc2,     &State::RawAcc3,
                        &State::RawAngRate1, &State::RawAngRate2, &State::RawAngRate3};
    struct Case {
        FileKind kind;
        Side side;
        std::vector<Fields> groups;
    };
    const std::vector<Case> cases = {
        {FileKind::SensorBits, Side::Gyro, {raw}},
        {FileKind::Vectors, Side::Gyro, {stabMagAcc, compRate}},
        {FileKind::Vectors, Side::Instant, {instMag, instAcc, instRate}},
        {FileKind::Quaternions, Side::Gyro, {stabQuat}},
        {FileKind::Quaternions, Side::Instant, {instQuat}},
        {FileKind::Angles, Side::Gyro, {pitchYawRoll}},
        {FileKind::Angles, Side::Instant, {pitchYawRoll}},
        {FileKind::QuatVecs, Side::Gyro, {stabQuat, instMag, instAcc, compRate}},
        {FileKind::QuatVecs, Side::Instant, {instQuat, instMag, instAcc, instRate}},
        {FileKind::AnglesAccRateVector, Side::Gyro, {rollPitchYaw, instAcc, compRate}},
    };
    for (const auto& [kind, side, groups] : cases) {
        SampleState = {};
        std::string expected = ".75";
        int number = 0;
        for (const Fields& group : groups) {
            for (const auto& member : group) {
                SampleState.*member = ++number;
                expected += ", " + std::to_string(number);
            }
        }
        (side == Side::Gyro ? SampleState.TicksGyro : SampleState.TicksInstant) = 54321;
        EXPECT_EQ(FileRow(kind, side, ".75"), expected + ", 54321");
    }
}

TEST(FileRow, MatrixGoesColumnByColumn) {
    SampleState = {};
    SampleState.StabMatrix = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    SampleState.InstMatrix = {-1, 0, 0.25, -0.25, 5, 6, 7, 8, -0.0};
    SampleState.TicksInstant = 65535;
    EXPECT_EQ(FileRow(FileKind::Matrix, Side::Gyro, "0"), "0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0");
    EXPECT_EQ(FileRow(FileKind::Matrix, Side::Instant, "10.5"),
              "10.5,-1, 0, .25,-.25, 5, 6, 7, 8, 0, 65535");
}

}  // namespace
}  // namespace orbkl4
