#pragma once

#include "running_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orbkl4::test {

/// The rows of a data file, their columns with the blank before a number.
using Rows = std::vector<std::vector<std::string>>;

/// A stage for sampling on port 16, which no adapter of this machine is likely to use.
class SamplingTest : public testing::Test {
  protected:
    SamplingTest() { stage.StoreSettings("CurrentCommPort=16\n"); }

    /// Opens the view without a connection, which takes seconds, and samples into the file `name`.
    static void StartSaving(RunningProgram& program, const std::string& name);

    /// The content of the data file `name`, empty if there is none.
    std::string Content(const std::string& name) const {
        return ContentOf(stage.DataFiles() / name);
    }

    /// Waits until the data file `name` has grown by `bytes`; false if it doesn't.
    bool Grows(const std::string& name, std::size_t bytes = 500) const;

    /// The rows of the data file `name` after its head; throws std::runtime_error unless each is a
    /// time and ten words, ended by CR LF.
    Rows ReadRows(const std::string& name) const;

    Stage stage;
};

}  // namespace orbkl4::test
