#include "endurance/endurance_fixture.h"
#include "simulator/simulator.h"
#include "simulator/temporary_folder.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace orbkl4::test {

/// A sensor that replies at once, so that a day passes in minutes; the broker is never there. With
/// ten rows a second a day has 864000 samples.
TEST(LongRecording, TakesNoMoreMemoryAtItsEndThanAfterItsFirstTenth) {
    const int samples = static_cast<int>(NumberFromEnvironment("ORBKL4_ENDURANCE_SAMPLES", 20'000));
    const orbkl4sim::TemporaryFolder folder;
    orbkl4sim::Simulator sensor({.paced = false, .record = false});
    sensor.Start();
    const std::filesystem::path file = folder / "day.csv";
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    // A sanitizer would keep what has been freed.
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("quarantine_size_mb=0:thread_local_quarantine_size_kb=0"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(CLI_PROGRAM),
                  {"-q", "record", "vectors", "--device", sensor.DevicePath().c_str(), "-o",
                   file.c_str(), "--mqtt", "127.0.0.1:1", "--samples", QString::number(samples)});
    ASSERT_TRUE(program.waitForStarted());
    constexpr double bytesPerRow = 80;  // at least
    constexpr int milliseconds = 20;
    double warm = 0;
    double last = 0;
    while (!program.waitForFinished(milliseconds)) {
        const double memory = ResidentBytes(std::to_string(program.processId()));
        if (memory > 0) last = memory;
        std::error_code none;
        const auto size = static_cast<double>(std::filesystem::file_size(file, none));
        if (warm == 0 && !none && size > samples * bytesPerRow / 10) warm = memory;
        ASSERT_NE(QProcess::NotRunning, program.state());
    }
    EXPECT_EQ(0, program.exitCode()) << program.readAllStandardError().toStdString();
    ASSERT_GT(warm, 0);
    EXPECT_LT(last - warm, mebibyte);
    std::printf("%d samples; memory %.2f MiB, %+.3f MiB since the first tenth\n", samples,
                last / mebibyte, (last - warm) / mebibyte);
}

}  // namespace orbkl4::test
