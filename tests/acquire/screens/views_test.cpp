#include "acquire/screens/view_fixture.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

namespace orbkl4::test {

namespace {

class Views : public ViewTest {
  protected:
    Views() {
        AppState.MagGainScale = 3277;
        AppState.AccGainScale = 65535;
        AppState.GyroGainScale = 1;
    }
};

struct ChannelCase {
    const char* place;  ///< the screen, its menu entry and its lamp
    std::uint8_t command;
    std::vector<unsigned> words;  ///< payload and ticks
    const char* fields;
    const char* texts;  ///< what the fields show
    const char* row;    ///< the row of the file after its time
};

// Worked out by hand: a field word s at gain g shows g s / 32768000 rounded to 4 places, a
// quaternion word s / 8192, an angle word 360 s / 65536 rounded to 1 place, s being signed but in
// the last angle of AnglesAccRate; a matrix is divided by its determinant. The last text is the sum
// modulo 65536.
const std::vector<ChannelCase> channelCases = {
    {"SensorBits mnuSample LED",
     0x01,
     {0, 1, 32767, 32768, 65535, 16384, 2, 40000, 65534, 65533},
     "txtHeader txtRawMag1 txtRawMag2 txtRawMag3 txtRawAcc1 txtRawAcc2 txtRawAcc3 "
     "txtRawAngRate1 txtRawAngRate2 txtRawAngRate3 txtTimerTicks txtCS",
     "1 0 1 32767 32768 65535 16384 2 40000 65534 65533 56381",
     ", 0, 1, 32767, 32768, 65535, 16384, 2, 40000, 65534, 65533"},
    {"Vectors mnuSampleGyro LED",
     0x02,
     {32767, 32768, 65535, 32767, 32768, 1, 32767, 32768, 65535, 1},
     "txtHeader txtStabMagFieldX txtStabMagFieldY txtStabMagFieldZ txtStabAccelX txtStabAccelY "
     "txtStabAccelZ txtCompAngRateX txtCompAngRateY txtCompAngRateZ txtTimerTicks txtCS",
     "2 3.2769 -3.277 -0.0001 65.533 -65.535 0.002 0.001 -0.001 0 1 65535",
     ", 3.2769,-3.277,-.0001, 65.533,-65.535, .002, .001,-.001, 0, 1"},
    {"Vectors mnuSampleInstant LEDI",
     0x03,
     {1, 16384, 65535, 65535, 1, 16384, 32767, 32768, 16384, 32768},
     "txtHeaderI txtMagX txtMagY txtMagZ txtAccX txtAccY txtAccZ txtAngRateX txtAngRateY "
     "txtAngRateZ txtTimerTicksI txtCSI",
     "3 0.0001 1.6385 -0.0001 -0.002 0.002 32.7675 0.001 -0.001 0.0005 32768 16386",
     ", .0001, 1.6385,-.0001,-.002, .002, 32.7675, .001,-.001, .0005, 32768"},
    {"Quaternions mnuSampleGyro LED",
     0x05,
     {32767, 32768, 65535, 8192, 0},
     "txtHeader txtStabQuat0 txtStabQuat1 txtStabQuat2 txtStabQuat3 txtTimerTicks txtCS",
     "5 3.9999 -4 -0.0001 1 0 8195",
     ", 3.9999,-4,-.0001, 1, 0"},
    {"Quaternions mnuSampleInstant LEDI",
     0x04,
     {0, 1, 57344, 4096, 32767},
     "txtHeaderI txtQuat0 txtQuat1 txtQuat2 txtQuat3 txtTimerTicksI txtCSI",
     "4 0 0.0001 -1 0.5 32767 28676",
     ", 0, .0001,-1, .5, 32767"},
    {"Angles mnuSampleGyro LED",
     0x0E,
     {32767, 32768, 65535, 9},
     "txtRoll txtPitch txtYaw",
     "180 -180 0",
     ",-180, 0, 180, 9"},
    {"Angles mnuSampleInstant LEDI",
     0x0D,
     {32768, 10, 16384, 65535},
     "txtRoll txtPitch txtYaw",
     "-180 0.1 90",
     ", .1, 90,-180, 65535"},
    {"Matrices mnuSampleGyro LED",
     0x0B,
     {16384, 8192, 0, 0, 16384, 57344, 0, 0, 16384, 2},  // determinant 8
     "txtHeader txtS11 txtS21 txtS31 txtS12 txtS22 txtS32 txtS13 txtS23 txtS33 txtTimerTicks "
     "txtCS",
     "11 0.25 0.125 0 0 0.25 -0.125 0 0 0.25 2 49165",
     ", .25, .125, 0, 0, .25,-.125, 0, 0, .25, 2"},
    {"Matrices mnuSampleInstant LEDI",
     0x0A,
     {16384, 8192, 8192, 8192, 24576, 57344, 57344, 16384, 8192, 3},  // determinant 15
     "txtHeaderI txt11 txt21 txt31 txt12 txt22 txt32 txt13 txt23 txt33 txtTimerTicksI txtCSI",
     "10 0.1333 0.0667 0.0667 0.0667 0.2 -0.0667 -0.0667 0.1333 0.0667 3 8205",
     ", .1333, .0667, .0667, .0667, .2,-.0667,-.0667, .1333, .0667, 3"},
    {"AnglesAccRate mnuSample LED",
     0x31,
     {32767, 32768, 65535, 16384, 1, 32768, 0, 16384, 32768, 12345},
     "txtHeader txtRoll txtPitch txtYaw txtAccX txtAccY txtAccZ txtAngRateX txtAngRateY "
     "txtAngRateZ txtTimerTicks txtCS",
     "49 180 -180 360 32.7675 0.002 -65.535 0 0.0005 -0.001 12345 45161",
     ", 180,-180, 360, 32.7675, .002,-65.535, 0, .0005,-.001, 12345"},
    {"QuatVec mnuSampleGyro LED",
     0x0C,
     {8192, 57344, 0, 65535, 1, 16384, 32767, 65535, 1, 16384, 32767, 32768, 16384, 65535},
     "txtHeader txtStabQuat0 txtStabQuat1 txtStabQuat2 txtStabQuat3 txtMagX txtMagY txtMagZ "
     "txtAccX txtAccY txtAccZ txtARX txtARY txtARZ txtTimerTicks txtCS",
     "12 1 -1 0 -0.0001 0.0001 1.6385 3.2769 -0.002 0.002 32.7675 0.001 -0.001 0.0005 65535 "
     "16393",
     ", 1,-1, 0,-.0001, .0001, 1.6385, 3.2769,-.002, .002, 32.7675, .001,-.001, .0005, 65535"},
    {"QuatVec mnuSampleInstant LEDI",
     0x12,
     {32767, 32768, 1, 0, 32767, 32768, 16384, 32767, 32768, 16384, 32767, 32768, 16384, 4},
     "txtHeaderI txtQuat0 txtQuat1 txtQuat2 txtQuat3 txtIMagX txtIMagY txtIMagZ txtIAccX "
     "txtIAccY txtIAccZ txtIARX txtIARY txtIARZ txtTimerTicksI txtCSI",
     "18 3.9999 -4 0.0001 0 3.2769 -3.277 1.6385 65.533 -65.535 32.7675 0.001 -0.001 0.0005 4 "
     "49171",
     ", 3.9999,-4, .0001, 0, 3.2769,-3.277, 1.6385, 65.533,-65.535, 32.7675, .001,-.001, "
     ".0005, 4"},
};

/// While a channel runs, what would disturb it is disabled.
void ExpectOthersEnabled(const Screen& screen, const std::string& entry, bool enabled) {
    EXPECT_EQ(screen.Menu(entry.c_str()).Checked(), !enabled);
    EXPECT_EQ(screen.Menu("mnuSave").Enabled(), enabled);
    EXPECT_TRUE(screen.Menu("mnuReturn").Enabled());
    for (const std::string side : {"Gyro", "Instant"}) {
        const bool own = entry == "mnuSample" + side;
        for (const std::string& name : {"mnuSample" + side, "fra" + side}) {
            const auto* part = screen.findChild<QObject*>(name.c_str());
            if (part == nullptr) continue;  // a view of one channel, or of dials
            EXPECT_EQ(part->property("enabled").toBool(), enabled || own) << name;
        }
    }
}

}  // namespace

TEST_F(Views, EachChannelShowsAndSavesItsPacketAndClearsTheScreen) {
    for (const ChannelCase& channel : channelCases) {
        SCOPED_TRACE(channel.place);
        const auto place = Split(channel.place);
        const char* entry = place[1].c_str();
        const char* lamp = place[2].c_str();
        Screen& screen = Open(place[0].c_str());
        const auto fields = Split(channel.fields);
        EXPECT_EQ(Texts(screen, fields), std::vector<std::string>(fields.size(), ""));
        Script(channel.command, {Frame(channel.command, channel.words)});
        const QString leaf = QStringLiteral("%1.csv").arg(channel.command);
        SaveTo(screen, leaf);
        Click(screen, entry);
        ExpectOthersEnabled(screen, entry, false);
        ASSERT_TRUE(AwaitRequests(2));
        EXPECT_EQ(sensor.Received(), (Bytes{channel.command, channel.command}));
        EXPECT_EQ(Texts(screen, fields), Split(channel.texts));
        std::size_t filled = 0;
        for (const auto* field : screen.findChildren<TextField*>())
            if (!field->Text().empty()) ++filled;
        EXPECT_EQ(filled, fields.size()) << "the panel of another channel is not its own";
        EXPECT_TRUE(Lit(screen, lamp));
        const QStringList rows = Rows(leaf);
        ASSERT_EQ(rows.size(), 1);
        EXPECT_EQ(rows[0].mid(rows[0].indexOf(QLatin1Char(','))).toStdString(), channel.row);
        Click(screen, entry);
        ExpectOthersEnabled(screen, entry, true);
        const bool dials = place[0] == "Angles";
        EXPECT_EQ(Texts(screen, fields), std::vector<std::string>(fields.size(), dials ? "0" : ""));
        EXPECT_FALSE(Lit(screen, lamp));
        Click(screen, "mnuReturn");
    }
}

TEST_F(Views, SlidesFollowTheRawWords) {
    Screen& screen = Open("SensorBits");
    Script(0x01, {Frame(0x01, {65535, 1, 2, 3, 4, 5, 6, 7, 32768, 0})});
    Click(screen, "mnuSample");
    ASSERT_TRUE(AwaitRequests(2));
    EXPECT_EQ(Get<CWSlide>(screen, "SlideMag1").Value(), 65535);
    EXPECT_EQ(Get<CWSlide>(screen, "SlideMag1").Maximum(), 65535);
    EXPECT_EQ(Get<CWSlide>(screen, "SlideAcc1").Value(), 3);
    EXPECT_EQ(Get<CWSlide>(screen, "SlideAR3").Value(), 32768);
    Click(screen, "mnuSample");
    for (const CWSlide* slide : screen.findChildren<CWSlide*>()) EXPECT_EQ(slide->Value(), 0);
}

TEST_F(Views, DialsTakeWhatTheyGetAndTheirTextsFollowThem) {
    Screen& screen = Open("Angles");
    auto& dialRoll = Get<CWKnob>(screen, "dialRoll");
    auto& dialPitch = Get<CWKnob>(screen, "dialPitch");
    EXPECT_EQ(dialRoll.Maximum(), 179.99);
    EXPECT_EQ(dialPitch.Minimum(), -90);
    Script(0x0E, {Frame(0x0E, {32767, 32768, 8192, 0})});
    Click(screen, "mnuSampleGyro");
    ASSERT_TRUE(AwaitRequests(2));
    EXPECT_EQ(dialRoll.Value(), 180);
    EXPECT_EQ(dialPitch.Value(), -180) << "beyond its axis";
    EXPECT_EQ(Get<CWKnob>(screen, "dialYaw").Value(), 45);
    EXPECT_FALSE(Get<QWidget>(screen, "fraAngGyro").isVisible());
    EXPECT_FALSE(Get<QWidget>(screen, "fraAngInstant").isVisible());
    dialRoll.Value(12.5);
    EXPECT_EQ(Text(screen, "txtRoll"), "12.5") << "whoever moves the dial";
}

}  // namespace orbkl4::test
