#include "datafiles/logic/file_kinds.h"

#include "frame/logic/app_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace orbkl4 {
namespace {

using State = SampleStateRecord;

TEST(FileHeader, HasFiveLinesWithTheTitlesOfItsKind) {
    AppState.VersionText = "2.0.4";
    struct Case {
        const char *kind, *titles;
    };
    const std::vector<Case> cases = {
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
    for (const auto& [kind, titles] : cases)
        EXPECT_EQ(FileHeader(kind, "03.02.24", "17:05:09"),
                  (std::vector<std::string>{"Kestrelmoor ORB-KL4 Data File Version 2.0.4",
                                            "Date file created: 03.02.24",
                                            "Time file created: 17:05:09", kind, titles}));
    EXPECT_EQ(FileHeader("Pressure", "d", "t").size(), 4);
}

/// Numbers 1, 2, 3 … in the order in which a row must show them.
void Number(const std::vector<double State::*>& members) {
    double number = 0;
    for (const auto& member : members) SampleState.*member = ++number;
}

TEST(FileRow, TakesEachValueFromItsField) {
    const std::vector<double State::*> stabQuat = {&State::StabQuat0, &State::StabQuat1,
                                                   &State::StabQuat2, &State::StabQuat3};
    const std::vector<double State::*> instQuat = {&State::InstQuat0, &State::InstQuat1,
                                                   &State::InstQuat2, &State::InstQuat3};
    const std::vector<double State::*> stabMagAcc = {&State::StabMagX, &State::StabMagY,
                                                     &State::StabMagZ, &State::StabAccX,
                                                     &State::StabAccY, &State::StabAccZ};
    const std::vector<double State::*> instAcc = {&State::InstAccX, &State::InstAccY,
                                                  &State::InstAccZ};
    const std::vector<double State::*> instMag = {&State::InstMagX, &State::InstMagY,
                                                  &State::InstMagZ};
    const std::vector<double State::*> compRate = {&State::CompAngRateX, &State::CompAngRateY,
                                                   &State::CompAngRateZ};
    const std::vector<double State::*> instRate = {&State::InstAngRateX, &State::InstAngRateY,
                                                   &State::InstAngRateZ};
    const std::vector<double State::*> pitchYawRoll = {&State::Pitch, &State::Yaw, &State::Roll};
    const std::vector<double State::*> rollPitchYaw = {&State::Roll, &State::Pitch, &State::Yaw};
    const std::vector<double State::*> raw = {
        &State::RawMag1,     &State::RawMag2,     &State::RawMag3,
        &State::RawAcc1,     &State::RawAcc2,     &State::RawAcc3,
        &State::RawAngRate1, &State::RawAngRate2, &State::RawAngRate3};
    struct Case {
        FileKind kind;
        Side side;
        std::vector<std::vector<double State::*>> groups;
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
        std::vector<double State::*> members;
        for (const auto& group : groups) members.insert(members.end(), group.begin(), group.end());
        Number(members);
        (side == Side::Gyro ? SampleState.TicksGyro : SampleState.TicksInstant) = 54321;
        std::string expected = ".75";
        for (std::size_t i = 1; i <= members.size(); ++i) expected += ", " + std::to_string(i);
        expected += ", 54321";
        EXPECT_EQ(FileRow(kind, side, ".75"), expected);
        const std::string header = FileHeader(RowOf(kind).text, "", "").back();
        EXPECT_EQ(std::ranges::count(header, ','), std::ranges::count(expected, ','));
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

TEST(FileRow, NumbersHaveABlankOrASignAndNoDigitBeforeThePoint) {
    SampleState = {};
    SampleState.Pitch = -0.1;
    SampleState.Yaw = 0.00001;
    SampleState.Roll = -179.9;
    SampleState.TicksGyro = 1234;
    EXPECT_EQ(FileRow(FileKind::Angles, Side::Gyro, "60.01"), "60.01,-.1, 1E-05,-179.9, 1234");
}

}  // namespace
}  // namespace orbkl4
