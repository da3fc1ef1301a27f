#include "main_window/logic/status_text.h"

#include "main_window/logic/sample_rate.h"

#include <gtest/gtest.h>

#include <utility>

namespace orbkl4::test {

TEST(StatusText, SaysWhatIsKnownInAFixedOrder) {
    const auto expect = [](const AppStateRecord& app, const SampleStateRecord& sample,
                           const StatusFacts& facts, const std::string& activity) {
        EXPECT_EQ(StatusText(app, sample, facts).activity, activity);
    };
    AppStateRecord app;
    app.FirmwareText = "3.1.01";
    app.SerialNumber = 1207;
    app.CommPort = 2;
    app.CommSettings = "115200,n,8,1";
    app.DataFileName = "/home/ann/Data Files/run.csv";
    SampleStateRecord sample;
    EXPECT_EQ(StatusText({}, sample, {}).sensor, "Not connected: choose File, Connect");
    EXPECT_EQ(StatusText(app, sample, {}).sensor,
              "Sensor 1207 · firmware 3.1.01 · port 2 · 115200 baud");
    expect(app, sample, {}, "");
    sample.Running = true;
    sample.BadReplies = 3;
    sample.Restarts = 1;
    const std::string channel = "152.6 samples/s · bad replies 3 · restarts 1";
    expect(app, sample, {.samplesPerSecond = 152.58}, channel);
    sample.SaveActive = true;
    sample.RowsOfDataFile = 12345;
    expect(app, sample, {152.58, 987'654, 99'999'999},
           channel + "  |  run.csv · rows 12345 · 987.7 kB · only 100.0 MB free");
    sample.Running = false;
    sample.FailedFile = app.DataFileName;
    sample.FailureText = "Disk full";
    expect(app, sample, {.freeBytes = 100'000'000},
           "run.csv · rows 12345  |  Not written: Disk full");
    sample.LostRows = 1;
    sample.SaveActive = false;
    expect(app, sample, {}, "Not written to run.csv: Disk full, rows lost 1");
}

TEST(StatusText, RatesKeepTheirWidth) {
    SampleStateRecord sample;
    sample.Running = true;
    const std::string blank = "\u2007";
    for (const auto& [rate, text] :
         {std::pair{0.0, blank + blank + "0.0"}, std::pair{9.96, blank + "10.0"},
          std::pair{99.96, std::string("100.0")}, std::pair{1234.5, std::string("1234.5")}})
        EXPECT_EQ(StatusText({}, sample, {.samplesPerSecond = rate}).activity,
                  text + " samples/s · bad replies 0 · restarts 0");
}

TEST(StatusText, SizesAndNamesStayShort) {
    SampleStateRecord sample;
    sample.SaveActive = true;
    AppStateRecord app;
    app.DataFileName = "/d/f";
    using Size = std::pair<std::uint64_t, std::string>;
    for (const auto& [bytes, text] :
         {Size{0, "0 B"}, Size{999, "999 B"}, Size{1000, "1.0 kB"}, Size{999'949, "999.9 kB"},
          Size{999'950, "1.0 MB"}, Size{2'500'000'000, "2.5 GB"},
          Size{5'000'000'000'000'000, "5000.0 TB"}})
        EXPECT_EQ(StatusText(app, sample, {.fileBytes = bytes}).activity, "f · rows 0 · " + text);
    const std::string head(13, 'a');
    const std::string tail(9, 'z');
    for (const auto& [name, text] :
         {std::pair{head + "bc" + tail, head + "bc" + tail},
          std::pair{head + "bcd" + tail, head + "b\u2026" + tail},
          std::pair{head + "\u00E9\u00E9" + tail, head + "\u2026" + tail}}) {
        app.DataFileName = "/d/" + name;
        EXPECT_EQ(StatusText(app, sample, {}).activity, text + " · rows 0") << name;
    }
}

TEST(SampleRate, CountsOverTheLastEightLooks) {
    SampleRate rate;
    EXPECT_EQ(rate(10, 500), 0);
    EXPECT_EQ(rate(10.5, 550), 100);
    for (int i = 2; i < 9; ++i) rate(10 + 0.5 * i, 550);
    EXPECT_EQ(rate(14.5, 550), 0) << "the first looks are forgotten";
    EXPECT_EQ(rate(15, 3), 0) << "a new start";
    EXPECT_EQ(rate(15.25, 13), 40);
    rate.Clear();
    EXPECT_EQ(rate(100, 13), 0);
    EXPECT_EQ(rate(100, 13), 0) << "no time passed";
}

}  // namespace orbkl4::test
