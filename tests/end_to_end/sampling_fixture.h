#pragma once

#include "data_file.h"
#include "running_program.h"

#include <gtest/gtest.h>

#include <string>

namespace orbkl4::test {

/// A stage on which the raw sensor bits of port 16, which no adapter of this machine is likely to
/// be, are saved in the folder for data files.
class SamplingTest : public testing::Test {
  protected:
    SamplingTest() { stage.StoreSettings("CurrentCommPort=16\n"); }

    /// Opens the view without a connection, which takes seconds, and saves under `name`.
    static void StartSaving(RunningProgram& program, const std::string& name);

    /// The size of the data file `name`, 0 where there is none.
    std::uintmax_t SizeOf(const std::string& name) const;

    /// Waits until the data file `name` has grown by `bytes`.
    testing::AssertionResult Grows(const std::string& name, std::uintmax_t bytes = 500) const;

    /// Whether the data file `name` ends with a whole line.
    testing::AssertionResult EndsWithALine(const std::string& name) const;

    /// The rows of the data file `name`, every line of which must be whole.
    SensorBitsFile Read(const std::string& name) const;

    Stage stage;
};

}  // namespace orbkl4::test
