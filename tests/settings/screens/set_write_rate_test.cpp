#include "platform/controls/cw_num_edit.h"
#include "platform/windows/screen_registry.h"
#include "state/sample_state.h"
#include "support/box_answerer.h"
#include "support/screens/screen_fixture.h"

#include <QCheckBox>

namespace orbkl4::test {

namespace {

class WriteRate : public ScreenTest {
  protected:
    Screen& screen = OpenModal("SetWriteRate");
    QCheckBox& chkUnrestricted = Get<QCheckBox>(screen, "chkUnrestricted");
    CWNumEdit& rate = Get<CWNumEdit>(screen, "NumEditRate");

    static bool Closed() { return FindScreen("SetWriteRate") == nullptr; }
};

}  // namespace

TEST_F(WriteRate, StartsAsTheSettingStandsAndSetsIt) {
    EXPECT_TRUE(chkUnrestricted.isChecked());
    EXPECT_FALSE(rate.isEnabled());
    EXPECT_EQ(rate.Value(), 0);
    chkUnrestricted.click();
    EXPECT_TRUE(rate.isEnabled());
    EXPECT_DOUBLE_EQ(rate.Minimum(), 0.01);
    EXPECT_DOUBLE_EQ(rate.Maximum(), 157);
    for (const std::string& limits : {Text(screen, "lblLimits"), rate.toolTip().toStdString(),
                                      rate.accessibleDescription().toStdString()})
        EXPECT_EQ(limits, "0.01 to 157");
    rate.Value(20);
    Press(screen, "cmdOK");
    EXPECT_TRUE(Closed());
    EXPECT_DOUBLE_EQ(SampleState.WriteIntervalTicks, 7.62939453125);  // 1000 / 20 / 6.5536
    Screen& again = OpenModal("SetWriteRate");
    EXPECT_FALSE(Get<QCheckBox>(again, "chkUnrestricted").isChecked());
    EXPECT_DOUBLE_EQ(Get<CWNumEdit>(again, "NumEditRate").Value(), 20);
    Get<QCheckBox>(again, "chkUnrestricted").click();
    Press(again, "cmdOK");
    EXPECT_EQ(SampleState.WriteIntervalTicks, 0);
}

TEST_F(WriteRate, NeitherARateOfNothingNorCancelChangesIt) {
    SampleState.WriteIntervalTicks = 153;
    chkUnrestricted.click();
    const BoxAnswerer boxes({QMessageBox::Retry});
    Press(screen, "cmdOK");
    ASSERT_EQ(boxes.Count(), 1U);
    EXPECT_EQ(boxes.Error(0), "11 cmdOK_Click SetWriteRate");
    EXPECT_FALSE(Closed());
    rate.Value(2);
    Press(screen, "cmdCancel");
    EXPECT_TRUE(Closed());
    EXPECT_EQ(SampleState.WriteIntervalTicks, 153);
}

}  // namespace orbkl4::test
