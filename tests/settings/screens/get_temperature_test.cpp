#include "link/screens/runs_fixture.h"
#include "platform/controls/cw_slide.h"
#include "state/sample_state.h"

namespace orbkl4::test {

namespace {

class Temperature : public ScreenTest {
  protected:
    Screen& screen = OpenModal("GetTemperature");

    bool PortOpen() const { return Get<MSComm>(screen, "MSComm1").PortOpen(); }

    Strings Fields() const {
        Strings texts;
        for (const char* field : {"txtC", "txtF", "txtRe", "txtK", "txtRa"})
            texts.push_back(Text(screen, field));
        return texts;
    }

    double Slide() const { return Get<CWSlide>(screen, "SlideDegreesC").Value(); }

    /// Whether the thermometer's bulb, at its foot, is red.
    bool ShowsFluid() const {
        CWSlide& slide = Get<CWSlide>(screen, "SlideDegreesC");
        const QImage picture = slide.grab().toImage();
        const QPoint bulb(qRound(slide.PointerPlace().x()), slide.height() - 20);
        const QColor colour = picture.pixelColor(bulb * picture.devicePixelRatio());
        return colour.red() > 2 * colour.green();
    }
};

}  // namespace

TEST_F(Temperature, IsShownInFiveScalesUnlessTheReplyIsBad) {
    struct Case {
        Bytes reply;
        Strings texts;
        double slide;
        Strings messages;
    };
    const Bytes header{0x06, 0x33, 0x33, 0x00, 0x01, 0x33, 0x3A};
    const Bytes checksum{0x07, 0x33, 0x33, 0x00, 0x01, 0x33, 0x3C};
    const auto good = [](unsigned word) { return Frame(0x07, {word, 65000}); };
    EXPECT_EQ(Text(screen, "lblRe"), "R\u00e9aumur");
    EXPECT_FALSE(ShowsFluid());
    for (const auto& [reply, texts, slide, messages] : std::vector<Case>{
             {good(0), {"-50", "-58", "-40", "223.2", "401.7"}, -50, {}},       // 223.15
             {good(6554), {"0", "32", "0", "273.2", "491.7"}, 0, {}},           // 273.15
             {good(13107), {"50", "122", "40", "323.2", "581.7"}, 50, {}},      // 49.998; 323.15
             {good(65535), {"450", "842", "360", "723.2", "1301.7"}, 450, {}},  // 449.992; 723.15
             {header, Strings(5), 0, {"Temperature return failed! Try again."}},
             {checksum, Strings(5), 0, {"Temperature return failed!"}},
             // 24.7 makes 76.46 Fahrenheit; the 76.5 shown makes 536.17 Rankine, not 536.13.
             {good(9797), {"24.7", "76.5", "19.8", "297.8", "536.2"}, 24.7, {}}}) {
        const BoxAnswerer box({}, goOn);
        sensor.ClearRecord();
        sensor.ReplyOnceTo(0x07, reply);
        Press(screen, "cmdGet");
        EXPECT_EQ(Fields(), Strings(5)) << "all emptied";
        EXPECT_EQ(Slide(), 0);
        EXPECT_FALSE(ShowsFluid());
        ASSERT_TRUE(WaitFor([this] { return !PortOpen(); }));
        EXPECT_EQ(Fields(), texts);
        EXPECT_EQ(Slide(), slide);
        EXPECT_EQ(ShowsFluid(), messages.empty());
        EXPECT_EQ(box.Texts(), messages);
        EXPECT_EQ(Heard(), std::vector<Bytes>{{0x07}});
    }
    EXPECT_EQ(SampleState.HeaderGyro, 7);
    EXPECT_EQ(SampleState.TicksGyro, 65000);
    EXPECT_EQ(SampleState.ChecksumGyro, 9268);  // 7 + 9797 + 65000 - 65536
    EXPECT_EQ(SampleState.CalcChecksumGyro, 9268);
}

TEST_F(Temperature, ASilentSensorIsAskedAgainByTheNextClick) {
    const BoxAnswerer boxes({}, goOn);
    sensor.SetSilent(true);
    Press(screen, "cmdGet");
    ASSERT_TRUE(sensor.WaitForRequests(1, std::chrono::seconds(5)));
    LetPass(50);
    EXPECT_TRUE(PortOpen());
    EXPECT_EQ(Fields(), Strings(5));
    sensor.SetSilent(false);
    Press(screen, "cmdGet");
    ASSERT_TRUE(WaitFor([this] { return !PortOpen(); }));
    EXPECT_EQ(Text(screen, "txtC"), "25");
    sensor.SetSilent(true);
    Press(screen, "cmdGet");
    Press(screen, "cmdOK");
    EXPECT_EQ(FindScreen("GetTemperature"), nullptr);
    EXPECT_EQ(boxes.Count(), 0U);
}

}  // namespace orbkl4::test
