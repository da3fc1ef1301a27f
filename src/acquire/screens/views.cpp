#include "acquire/screens/views.h"

#include <array>

namespace orbkl4::views {

namespace {

using enum TextPanel::Layout;

constexpr bool group = true;  // has extra space above

// Sensor bits

constexpr auto bitsRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtRawMag1", "Raw Magnetometer 1", &Sample::RawMag1, group},
    {"txtRawMag2", "Raw Magnetometer 2", &Sample::RawMag2},
    {"txtRawMag3", "Raw Magnetometer 3", &Sample::RawMag3},
    {"txtRawAcc1", "Raw Accelerometer 1", &Sample::RawAcc1, group},
    {"txtRawAcc2", "Raw Accelerometer 2", &Sample::RawAcc2},
    {"txtRawAcc3", "Raw Accelerometer 3", &Sample::RawAcc3},
    {"txtRawAngRate1", "Raw Angular Rate 1", &Sample::RawAngRate1, group},
    {"txtRawAngRate2", "Raw Angular Rate 2", &Sample::RawAngRate2},
    {"txtRawAngRate3", "Raw Angular Rate 3", &Sample::RawAngRate3},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

constexpr auto bitsPanels = std::to_array<TextPanel>({
    {"fraBits", "Raw Sensor Bits", "LED", 0, bitsRows},
});

constexpr auto bitsSlides = std::to_array<SlideRow>({
    {"SlideMag1", "Mag1", &Sample::RawMag1},
    {"SlideMag2", "Mag2", &Sample::RawMag2},
    {"SlideMag3", "Mag3", &Sample::RawMag3},
    {"SlideAcc1", "Acc1", &Sample::RawAcc1},
    {"SlideAcc2", "Acc2", &Sample::RawAcc2},
    {"SlideAcc3", "Acc3", &Sample::RawAcc3},
    {"SlideAR1", "AR1", &Sample::RawAngRate1},
    {"SlideAR2", "AR2", &Sample::RawAngRate2},
    {"SlideAR3", "AR3", &Sample::RawAngRate3},
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
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtStabMagFieldX", "Stabilized Magnetic Field X", &Sample::StabMagX, group},
    {"txtStabMagFieldY", "Stabilized Magnetic Field Y", &Sample::StabMagY},
    {"txtStabMagFieldZ", "Stabilized Magnetic Field Z", &Sample::StabMagZ},
    {"txtStabAccelX", "Stabilized Acceleration X", &Sample::StabAccX, group},
    {"txtStabAccelY", "Stabilized Acceleration Y", &Sample::StabAccY},
    {"txtStabAccelZ", "Stabilized Acceleration Z", &Sample::StabAccZ},
    {"txtCompAngRateX", "Compensated Angular Rate X", &Sample::CompAngRateX, group},
    {"txtCompAngRateY", "Compensated Angular Rate Y", &Sample::CompAngRateY},
    {"txtCompAngRateZ", "Compensated Angular Rate Z", &Sample::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

constexpr auto instVectorRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &Sample::HeaderInstant},
    {"txtMagX", "Instantaneous Magnetic Field X", &Sample::InstMagX, group},
    {"txtMagY", "Instantaneous Magnetic Field Y", &Sample::InstMagY},
    {"txtMagZ", "Instantaneous Magnetic Field Z", &Sample::InstMagZ},
    {"txtAccX", "Instantaneous Acceleration X", &Sample::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &Sample::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &Sample::InstAccZ},
    {"txtAngRateX", "Instantaneous Angular Rate X", &Sample::InstAngRateX, group},
    {"txtAngRateY", "Instantaneous Angular Rate Y", &Sample::InstAngRateY},
    {"txtAngRateZ", "Instantaneous Angular Rate Z", &Sample::InstAngRateZ},
    {"txtTimerTicksI", "Timer Ticks", &Sample::TicksInstant, group},
    {"txtCSI", "Check Sum", &Sample::ChecksumInstant},
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
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtStabQuat0", "Stabilized Quaternion 0", &Sample::StabQuat0, group},
    {"txtStabQuat1", "Stabilized Quaternion 1", &Sample::StabQuat1},
    {"txtStabQuat2", "Stabilized Quaternion 2", &Sample::StabQuat2},
    {"txtStabQuat3", "Stabilized Quaternion 3", &Sample::StabQuat3},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

constexpr auto instQuatRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &Sample::HeaderInstant},
    {"txtQuat0", "Instantaneous Quaternion 0", &Sample::InstQuat0, group},
    {"txtQuat1", "Instantaneous Quaternion 1", &Sample::InstQuat1},
    {"txtQuat2", "Instantaneous Quaternion 2", &Sample::InstQuat2},
    {"txtQuat3", "Instantaneous Quaternion 3", &Sample::InstQuat3},
    {"txtTimerTicksI", "Timer Ticks", &Sample::TicksInstant, group},
    {"txtCSI", "Check Sum", &Sample::ChecksumInstant},
});

constexpr auto quaternionPanels = std::to_array<TextPanel>({
    {"fraGyro", "Gyro-Stabilized Quaternion", "LED", 4, stabQuatRows},
    {"fraInstant", "Instantaneous Quaternion", "LEDI", 4, instQuatRows},
});

// Euler angles

constexpr Axis fullAxis{.minimum = -179.99, .maximum = 179.99, .marks = 20, .subMarks = 10};
constexpr Axis halfAxis{.minimum = -90, .maximum = 90, .marks = 20, .subMarks = 10};

constexpr auto angleDials = std::to_array<DialRow>({
    {"fraPitch", "Pitch", "dialPitch", "txtPitch", &Sample::Pitch, halfAxis,
     CWKnob::Sweep::HalfCircle, 1},
    {"fraYaw", "Yaw", "dialYaw", "txtYaw", &Sample::Yaw, fullAxis, CWKnob::Sweep::FullCircle, 2},
    {"fraRoll", "Roll", "dialRoll", "txtRoll", &Sample::Roll, fullAxis, CWKnob::Sweep::FullCircle,
     0},
});

constexpr auto hiddenInstantRows = std::to_array<TextRow>({
    {"txtInstantPitch", "Pitch", &Sample::Pitch},
    {"txtInstantYaw", "Yaw", &Sample::Yaw},
    {"txtInstantRoll", "Roll", &Sample::Roll},
});

constexpr auto hiddenGyroRows = std::to_array<TextRow>({
    {"txtGyroRoll", "Roll", &Sample::Roll},
    {"txtGyroYaw", "Yaw", &Sample::Yaw},
    {"txtGyroPitch", "Pitch", &Sample::Pitch},
});

constexpr auto hiddenPanels = std::to_array<TextPanel>({
    {"fraAngInstant", "Instantaneous Angles", "", 1, hiddenInstantRows},
    {"fraAngGyro", "Gyro-Stabilized Angles", "", 1, hiddenGyroRows},
});

// Orientation matrix

constexpr auto stabMatrixRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtS11", "M11", {&Sample::StabMatrix, 0}, group},
    {"txtS21", "M21", {&Sample::StabMatrix, 1}},
    {"txtS31", "M31", {&Sample::StabMatrix, 2}},
    {"txtS12", "M12", {&Sample::StabMatrix, 3}},
    {"txtS22", "M22", {&Sample::StabMatrix, 4}},
    {"txtS32", "M32", {&Sample::StabMatrix, 5}},
    {"txtS13", "M13", {&Sample::StabMatrix, 6}},
    {"txtS23", "M23", {&Sample::StabMatrix, 7}},
    {"txtS33", "M33", {&Sample::StabMatrix, 8}},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

constexpr auto instMatrixRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &Sample::HeaderInstant},
    {"txt11", "M11", {&Sample::InstMatrix, 0}, group},
    {"txt21", "M21", {&Sample::InstMatrix, 1}},
    {"txt31", "M31", {&Sample::InstMatrix, 2}},
    {"txt12", "M12", {&Sample::InstMatrix, 3}},
    {"txt22", "M22", {&Sample::InstMatrix, 4}},
    {"txt32", "M32", {&Sample::InstMatrix, 5}},
    {"txt13", "M13", {&Sample::InstMatrix, 6}},
    {"txt23", "M23", {&Sample::InstMatrix, 7}},
    {"txt33", "M33", {&Sample::InstMatrix, 8}},
    {"txtTimerTicksI", "Timer Ticks", &Sample::TicksInstant, group},
    {"txtCSI", "Check Sum", &Sample::ChecksumInstant},
});

constexpr auto matrixPanels = std::to_array<TextPanel>({
    {"fraGyro", "Gyro-Stabilized Matrix", "LED", 4, stabMatrixRows, Matrix},
    {"fraInstant", "Instantaneous Matrix", "LEDI", 4, instMatrixRows, Matrix},
});

// Euler angles, acceleration and rate

constexpr auto anglesAccRateRows = std::to_array<TextRow>({
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtRoll", "Stabilized Roll", &Sample::Roll, group},
    {"txtPitch", "Stabilized Pitch", &Sample::Pitch},
    {"txtYaw", "Stabilized Yaw", &Sample::Yaw},
    {"txtAccX", "Instantaneous Acceleration X", &Sample::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &Sample::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &Sample::InstAccZ},
    {"txtAngRateX", "Compensated Angular Rate X", &Sample::CompAngRateX, group},
    {"txtAngRateY", "Compensated Angular Rate Y", &Sample::CompAngRateY},
    {"txtAngRateZ", "Compensated Angular Rate Z", &Sample::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

constexpr auto anglesAccRatePanels = std::to_array<TextPanel>({
    {"fraData", "Angles and Vectors", "LED", 4, anglesAccRateRows, TwoColumns},
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
    {"txtHeader", "Header", &Sample::HeaderGyro},
    {"txtStabQuat0", "Stabilized Quaternion 0", &Sample::StabQuat0, group},
    {"txtStabQuat1", "Stabilized Quaternion 1", &Sample::StabQuat1},
    {"txtStabQuat2", "Stabilized Quaternion 2", &Sample::StabQuat2},
    {"txtStabQuat3", "Stabilized Quaternion 3", &Sample::StabQuat3},
    {"txtMagX", "Instantaneous Magnetic Field X", &Sample::InstMagX, group},
    {"txtMagY", "Instantaneous Magnetic Field Y", &Sample::InstMagY},
    {"txtMagZ", "Instantaneous Magnetic Field Z", &Sample::InstMagZ},
    {"txtAccX", "Instantaneous Acceleration X", &Sample::InstAccX, group},
    {"txtAccY", "Instantaneous Acceleration Y", &Sample::InstAccY},
    {"txtAccZ", "Instantaneous Acceleration Z", &Sample::InstAccZ},
    {"txtARX", "Compensated Angular Rate X", &Sample::CompAngRateX, group},
    {"txtARY", "Compensated Angular Rate Y", &Sample::CompAngRateY},
    {"txtARZ", "Compensated Angular Rate Z", &Sample::CompAngRateZ},
    {"txtTimerTicks", "Timer Ticks", &Sample::TicksGyro, group},
    {"txtCS", "Check Sum", &Sample::ChecksumGyro},
});

// The sensor sends its stabilized quaternion in this packet too, and the labels say so, but the
// packet fills the fields of the instantaneous one.
constexpr auto instQuatVecRows = std::to_array<TextRow>({
    {"txtHeaderI", "Header", &Sample::HeaderInstant},
    {"txtQuat0", "Stabilized Quaternion 0", &Sample::InstQuat0, group},
    {"txtQuat1", "Stabilized Quaternion 1", &Sample::InstQuat1},
    {"txtQuat2", "Stabilized Quaternion 2", &Sample::InstQuat2},
    {"txtQuat3", "Stabilized Quaternion 3", &Sample::InstQuat3},
    {"txtIMagX", "Instantaneous Magnetic Field X", &Sample::InstMagX, group},
    {"txtIMagY", "Instantaneous Magnetic Field Y", &Sample::InstMagY},
    {"txtIMagZ", "Instantaneous Magnetic Field Z", &Sample::InstMagZ},
    {"txtIAccX", "Instantaneous Acceleration X", &Sample::InstAccX, group},
    {"txtIAccY", "Instantaneous Acceleration Y", &Sample::InstAccY},
    {"txtIAccZ", "Instantaneous Acceleration Z", &Sample::InstAccZ},
    {"txtIARX", "Instantaneous Angular Rate X", &Sample::InstAngRateX, group},
    {"txtIARY", "Instantaneous Angular Rate Y", &Sample::InstAngRateY},
    {"txtIARZ", "Instantaneous Angular Rate Z", &Sample::InstAngRateZ},
    {"txtTimerTicksI", "Timer Ticks", &Sample::TicksInstant, group},
    {"txtCSI", "Check Sum", &Sample::ChecksumInstant},
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
