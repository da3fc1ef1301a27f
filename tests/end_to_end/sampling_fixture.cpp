#include "sampling_fixture.h"

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace orbkl4::test {

void SamplingTest::StartSaving(RunningProgram& program, const std::string& name) {
    program.AwaitScreen("Main");
    program.Unlock("mnuDisplay");
    program.Choose("Main", "mnuSensorBits");
    program.AwaitScreen("SensorBits");
    program.Choose("SensorBits", "mnuSave");
    program.SaveAs(name);
    program.Await("SensorBits", "mnuSave", "checked", "true");
    program.Choose("SensorBits", "mnuSample");
}

std::uintmax_t SamplingTest::SizeOf(const std::string& name) const {
    std::error_code none;
    const auto size = fs::file_size(stage.DataFiles() / name, none);
    return none ? 0 : size;
}

testing::AssertionResult SamplingTest::Grows(const std::string& name, std::uintmax_t bytes) const {
    const auto least = SizeOf(name) + bytes;
    if (WaitUntil([&] { return SizeOf(name) >= least; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << name << " doesn't grow";
}

testing::AssertionResult SamplingTest::EndsWithALine(const std::string& name) const {
    constexpr std::streamoff longestLine = 100;
    std::ifstream file(stage.DataFiles() / name, std::ios::binary);
    file.seekg(-longestLine, std::ios::end);
    const std::string end{std::istreambuf_iterator<char>(file), {}};
    if (end.ends_with("\r\n")) return testing::AssertionSuccess();
    return testing::AssertionFailure() << name << " ends with: " << end;
}

SensorBitsFile SamplingTest::Read(const std::string& name) const {
    return ReadSensorBits(ContentOf(stage.DataFiles() / name));
}

}  // namespace orbkl4::test
