#pragma once

#include "platform/windows/screen.h"

class QCheckBox;

namespace orbkl4 {

class CWNumEdit;

/// Sets the greatest number of samples per second that are written to data files.
class SetWriteRate : public Screen {
    Q_OBJECT

  public:
    SetWriteRate();

    void Form_Load() override;

  private:
    void BuildLayout();
    void chkUnrestricted_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    QCheckBox* chkUnrestricted_;
    CWNumEdit* numEditRate_;
};

}  // namespace orbkl4
