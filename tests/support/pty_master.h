#pragma once

#include "base/bytes.h"

#include <QString>

namespace orbkl4::test {

/// The far end of a serial line, held by the test.
class PtyMaster {
  public:
    PtyMaster();
    ~PtyMaster();
    PtyMaster(const PtyMaster&) = delete;
    PtyMaster& operator=(const PtyMaster&) = delete;

    /// The device that a port opens.
    QString Path() const { return path_; }

    /// Sends `bytes` to the program.
    void Send(const Bytes& bytes) const;

    /// Takes what has come from the port, and waits up to ten seconds until there are `count`
    /// bytes.
    Bytes Take(std::size_t count) const;

    /// Pulls the line out: the program sees it hang up.
    void HangUp();

  private:
    int master_ = -1;
    QString path_;
};

}  // namespace orbkl4::test
