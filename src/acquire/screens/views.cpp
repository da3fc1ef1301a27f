#include "acquire/screens/views.h"

#include <array>

namespace orbkl4::views {

namespace {

using State = SampleStateRecord;
using enum TextPanel::Layout;

constexpr bool group = true;  // stands off from the row above

// Sensor bits

constexpr auto bitsRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtRawMag1", "Raw Magnetometer 1", &State::RawMag1, group},
    {"txtRawMag2", "Raw Magnetometer 2", &State::RawMag2},
    {"txtRawMag3", "Raw Magnetometer 3", &State::RawMag3},
    {"txtRawAcc1", "Raw Accelerometer 1", &State::RawAcc1, group},
    {"txtRawAcc2", "Raw Accelerometer 2", &State::RawAcc2},
    {"txtRawAcc3", "Raw Accelerometer 3", &State::RawAcc3},
    {"txtRawAngRate1", "Raw Angular Rate 1", &State::RawAngRate1, group},
    {"txtRawAngRate2", "Raw Angular Rate 2", &State::RawAngRate2},
    {"txtRawAngRate3", "Raw Angular Rate 3", &State::RawAngRate3},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

constexpr auto bitsPanels = std::to_array<TextPanel>({
    {"fraBits", "Raw Sensor Bits", "LED", 0, bitsRows},
});

constexpr auto bitsSlides = std::to_array<SlideRow>({
    {"SlideMag1", "Mag1", &State::RawMag1},
    {"SlideMag2", "Mag2", &State::RawMag2},
    {"SlideMag3", "Mag3", &State::RawMag3},
    {"SlideAcc1", "Acc1", &State::RawAcc1},
    {"SlideAcc2", "Acc2", &State::RawAcc2},
    {"SlideAcc3", "Acc3", &State::RawAcc3},
    {"SlideAR1", "AR1", &State::RawAngRate1},
    {"SlideAR2", "AR2", &State::RawAngRate2},
    {"SlideAR3", "AR3", &State::RawAngRate3},
});

constexpr auto bitsMenu = std::to_array<MenuRow>({
    {"mnuData", "&Data"},
    {"mnuSave", "Sa&ve", "mnuData"},
    {"mnuSample", "&Sample", "mnuData"},
    {"mnuSep", "-", "mnuData"},
    {"mnuReturn", "&Return", "mnuData"},
});

// Vectors

constexpr auto stabVectorRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtStabMagFieldX", "Stabilized Magnetic Field X", &State::StabMagX, group},
    {"txtStabMagFieldY", "Stabilized Magnetic Field Y", &State::StabMagY},
    {"txtStabMagFieldZ", "Stabilized Magnetic Field Z", &State::StabMagZ},
    {"txtStabAccelX", "Stabilized Acceleration X", &State::StabAccX, group},
    {"txtStabAccelY", "Stabilized Acceleration Y", &State::StabAccY},
    {"txtStabAccelZ", "Stabilized Acceleration Z", &State::StabAccZ},
    {"txtCompAngRateX", "Compensated Angular Rate X", &State::CompAngRateX, group},
    {"txtCompAngRateY", "Compensated Angular Rate Y", &State::CompAngRateY},
    {"txtCompAngRateZ", "Compensated Angular Rate Z", &State::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

constexpr auto instVectorRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &State::HeaderInstant},
    {"txtMagX", "Instantaneous Magnetic Field X", &State::InstMagX, group},
    {"txtMagY", "Instantaneous Magnetic Field Y", &State::InstMagY},
    {"txtMagZ", "Instantaneous Magnetic Field Z", &State::InstMagZ},
    {"txtAccX", "Instantaneous Acceleration X", &State::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &State::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &State::InstAccZ},
    {"txtAngRateX", "Instantaneous Angular Rate X", &State::InstAngRateX, group},
    {"txtAngRateY", "Instantaneous Angular Rate Y", &State::InstAngRateY},
    {"txtAngRateZ", "Instantaneous Angular Rate Z", &State::InstAngRateZ},
    {"txtTimerTicksI", "Timer Ticks", &State::TicksInstant, group},
    {"txtCSI", "Check Sum", &State::ChecksumInstant},
});

constexpr auto vectorPanels = std::to_array<TextPanel>({
    {"fraGyro", "Gyro-Stabilized Vectors", "LED", 4, stabVectorRows},
    {"fraInstant", "Instantaneous Vectors", "LEDI", 4, instVectorRows},
});

constexpr auto twoChannelMenu = std::to_array<MenuRow>({
    {"mnuData", "&Data"},
    {"mnuSave", "Sa&ve", "mnuData"},
    {"mnuSampleGyro", "&Sample Gyro-Stabilized", "mnuData"},
    {"mnuSampleInstant", "Sample &Instantaneous", "mnuData"},
    {"mnuCaptureBias", "&Capture Bias", "mnuData"},
    {"mnuSep", "-", "mnuData"},
    {"mnuReturn", "&Return", "mnuData"},
});

// Quaternions

constexpr auto stabQuatRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtStabQuat0", "Stabilized Quaternion 0", &State::StabQuat0, group},
    {"txtStabQuat1", "Stabilized Quaternion 1", &State::StabQuat1},
    {"txtStabQuat2", "Stabilized Quaternion 2", &State::StabQuat2},
    {"txtStabQuat3", "Stabilized Quaternion 3", &State::StabQuat3},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

constexpr auto instQuatRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &State::HeaderInstant},
    {"txtQuat0", "Instantaneous Quaternion 0", &State::InstQuat0, group},
    {"txtQuat1", "Instantaneous Quaternion 1", &State::InstQuat1},
    {"txtQuat2", "Instantaneous Quaternion 2", &State::InstQuat2},
    {"txtQuat3", "Instantaneous Quaternion 3", &State::InstQuat3},
    {"txtTimerTicksI", "Timer Ticks", &State::TicksInstant, group},
    {"txtCSI", "Check Sum", &State::ChecksumInstant},
});

constexpr auto quaternionPanels = std::to_array<TextPanel>({
    {"fraGyro", "Gyro-Stabilized Quaternion", "LED", 4, stabQuatRows},
    {"fraInstant", "Instantaneous Quaternion", "LEDI", 4, instQuatRows},
});

// Euler angles

constexpr Axis fullAxis{.minimum = -179.99, .maximum = 179.99, .marks = 20, .subMarks = 10};
constexpr Axis halfAxis{.minimum = -90, .maximum = 90, .marks = 20, .subMarks = 10};

constexpr auto angleDials = std::to_array<DialRow>({
    {"fraPitch", "Pitch", "dialPitch", "txtPitch", &State::Pitch, halfAxis,
     CWKnob::Sweep::HalfCircle, 1},
    {"fraYaw", "Yaw", "dialYaw", "txtYaw", &State::Yaw, fullAxis, CWKnob::Sweep::FullCircle, 2},
    {"fraRoll", "Roll", "dialRoll", "txtRoll", &State::Roll, fullAxis, CWKnob::Sweep::FullCircle,
     0},
});

constexpr auto hiddenInstantRows = std::to_array<TextRow>({
    {"txtInstantPitch", "Pitch", &State::Pitch},
    {"txtInstantYaw", "Yaw", &State::Yaw},
    {"txtInstantRoll", "Roll", &State::Roll},
});

constexpr auto hiddenGyroRows = std::to_array<TextRow>({
    {"txtGyroRoll", "Roll", &State::Roll},
    {"txtGyroYaw", "Yaw", &State::Yaw},
    {"txtGyroPitch", "Pitch", &State::Pitch},
});

constexpr auto hiddenPanels = std::to_array<TextPanel>({
    {"fraAngInstant", "Instantaneous Angles", "", 1, hiddenInstantRows},
    {"fraAngGyro", "Gyro-Stabilized Angles", "", 1, hiddenGyroRows},
});

// Orientation matrix

constexpr auto stabMatrixRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtS11", "M11", {&State::StabMatrix, 0}, group},
    {"txtS21", "M21", {&State::StabMatrix, 1}},
    {"txtS31", "M31", {&State::StabMatrix, 2}},
    {"txtS12", "M12", {&State::StabMatrix, 3}},
    {"txtS22", "M22", {&State::StabMatrix, 4}},
    {"txtS32", "M32", {&State::StabMatrix, 5}},
    {"txtS13", "M13", {&State::StabMatrix, 6}},
    {"txtS23", "M23", {&State::StabMatrix, 7}},
    {"txtS33", "M33", {&State::StabMatrix, 8}},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

constexpr auto instMatrixRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &State::HeaderInstant},
    {"txt11", "M11", {&State::InstMatrix, 0}, group},
    {"txt21", "M21", {&State::InstMatrix, 1}},
    {"txt31", "M31", {&State::InstMatrix, 2}},
    {"txt12", "M12", {&State::InstMatrix, 3}},
    {"txt22", "M22", {&State::InstMatrix, 4}},
    {"txt32", "M32", {&State::InstMatrix, 5}},
    {"txt13", "M13", {&State::InstMatrix, 6}},
    {"txt23", "M23", {&State::InstMatrix, 7}},
    {"txt33", "M33", {&State::InstMatrix, 8}},
    {"txtTimerTicksI", "Timer Ticks", &State::TicksInstant, group},
    {"txtCSI", "Check Sum", &State::ChecksumInstant},
});

constexpr auto matrixPanels = std::to_array<TextPanel>({
    {"fraGyro", "Gyro-Stabilized Matrix", "LED", 4, stabMatrixRows, Matrix},
    {"fraInstant", "Instantaneous Matrix", "LEDI", 4, instMatrixRows, Matrix},
});

// Euler angles, acceleration and rate

constexpr auto anglesAccRateRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtRoll", "Stabilized Roll", &State::Roll, group},
    {"txtPitch", "Stabilized Pitch", &State::Pitch},
    {"txtYaw", "Stabilized Yaw", &State::Yaw},
    {"txtAccX", "Instantaneous Acceleration X", &State::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &State::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &State::InstAccZ},
    {"txtAngRateX", "Compensated Angular Rate X", &State::CompAngRateX, group},
    {"txtAngRateY", "Compensated Angular Rate Y", &State::CompAngRateY},
    {"txtAngRateZ", "Compensated Angular Rate Z", &State::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

constexpr auto anglesAccRatePanels = std::to_array<TextPanel>({
    {"fraData", "Angles and Vectors", "LED", 4, anglesAccRateRows},
});

constexpr auto oneChannelMenu = std::to_array<MenuRow>({
    {"mnuData", "&Data"},
    {"mnuSave", "Sa&ve", "mnuData"},
    {"mnuSample", "&Sample", "mnuData"},
    {"mnuCaptureBias", "&Capture Bias", "mnuData"},
    {"mnuSep", "-", "mnuData"},
    {"mnuReturn", "&Return", "mnuData"},
});

// Quaternions and vectors

constexpr auto compQuatVecRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &State::HeaderGyro},
    {"txtStabQuat0", "Stabilized Quaternion 0", &State::StabQuat0, group},
    {"txtStabQuat1", "Stabilized Quaternion 1", &State::StabQuat1},
    {"txtStabQuat2", "Stabilized Quaternion 2", &State::StabQuat2},
    {"txtStabQuat3", "Stabilized Quaternion 3", &State::StabQuat3},
    {"txtMagX", "Instantaneous Magnetic Field X", &State::InstMagX, group},
    {"txtMagY", "Instantaneous Magnetic Field Y", &State::InstMagY},
    {"txtMagZ", "Instantaneous Magnetic Field Z", &State::InstMagZ},
    {"txtAccX", "Instantaneous Acceleration X", &State::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &State::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &State::InstAccZ},
    {"txtARX", "Compensated Angular Rate X", &State::CompAngRateX, group},
    {"txtARY", "Compensated Angular Rate Y", &State::CompAngRateY},
    {"txtARZ", "Compensated Angular Rate Z", &State::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &State::TicksGyro, group},
    {"txtCS", "Check Sum", &State::ChecksumGyro},
});

// The sensor sends its stabilized quaternion with this packet too, so the labels say so, though it
// goes to the fields of the instantaneous one.
constexpr auto instQuatVecRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &State::HeaderInstant},
    {"txtQuat0", "Stabilized Quaternion 0", &State::InstQuat0, group},
    {"txtQuat1", "Stabilized Quaternion 1", &State::InstQuat1},
    {"txtQuat2", "Stabilized Quaternion 2", &State::InstQuat2},
    {"txtQuat3", "Stabilized Quaternion 3", &State::InstQuat3},
    {"txtIMagX", "Instantaneous Magnetic Field X", &State::InstMagX, group},
    {"txtIMagY", "Instantaneous Magnetic Field Y", &State::InstMagY},
    {"txtIMagZ", "Instantaneous Magnetic Field Z", &State::InstMagZ},
    {"txtIAccX", "Instantaneous Acceleration X", &State::InstAccX, group},
    {"txtIAccY", "Instantaneous Acceleration Y", &State::InstAccY},
    {"txtIAccZ", "Instantaneous Acceleration Z", &State::InstAccZ},
    {"txtIARX", "Instantaneous Angular Rate X", &State::InstAngRateX, group},
    {"txtIARY", "Instantaneous Angular Rate Y", &State::InstAngRateY},
    {"txtIARZ", "Instantaneous Angular Rate Z", &State::InstAngRateZ},
    {"txtTimerTicksI", "Timer Ticks", &State::TicksInstant, group},
    {"txtCSI", "Check Sum", &State::ChecksumInstant},
});

constexpr auto quatVecPanels = std::to_array<TextPanel>({
    {"fraGyro", "Quaternion and Comp AngRate", "LED", 4, compQuatVecRows},
    {"fraInstant", "Quaternion and Instant AngRate", "LEDI", 4, instQuatVecRows},
});

constexpr auto quatVecMenu = std::to_array<MenuRow>({
    {"mnuData", "&Data"},
    {"mnuSave", "Sa&ve", "mnuData"},
    {"mnuSampleGyro", "&Sample Gyro-Stabilized Quaternions and Compensated Vectors", "mnuData"},
    {"mnuSampleInstant", "Sample Gyro-Stabilized Quaternions and &Instantaneous Vectors",
     "mnuData"},
    {"mnuCaptureBias", "&Capture Bias", "mnuData"},
    {"mnuSep", "-", "mnuData"},
    {"mnuReturn", "&Return", "mnuData"},
});

}  // namespace

constexpr View sensorBits{"SensorBits", "SensorBits", "Sensor Bits",
                          bitsMenu,     bitsPanels,   bitsSlides};
constexpr View vectors{"Vectors", "Vectors", "Vectors", twoChannelMenu, vectorPanels};
constexpr View quaternions{"Quaternions", "Quaternions", "Quaternions", twoChannelMenu,
                           quaternionPanels};
constexpr View angles{"Angles", "Euler Angles", "Angles",    twoChannelMenu, {},
                      {},       angleDials,     hiddenPanels};
constexpr View matrices{"Matrices", "Orientation Matrix", "Matrix", twoChannelMenu, matrixPanels};
constexpr View anglesAccRate{"AnglesAccRate", "Euler Angles, Accelerometer and Rate Vectors",
                             "AnglesAccRateVector", oneChannelMenu, anglesAccRatePanels};
constexpr View quatVec{"QuatVec", "Quaternions and Vectors", "QuatVecs", quatVecMenu,
                       quatVecPanels};

}  // namespace orbkl4::views
