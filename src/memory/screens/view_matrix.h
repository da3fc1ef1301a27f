#pragma once

#include "memory/logic/matrix_options.h"
#include "platform/windows/screen.h"

#include <array>
#include <cstddef>

class QGroupBox;

namespace orbkl4 {

class OptionButton;
class TextField;

/// Shows a matrix of the EEPROM from the fields of the EEPROM map, which must be open.
class ViewMatrix : public Screen {
    Q_OBJECT

  public:
    ViewMatrix();

    void Form_Load() override;

  private:
    static constexpr std::size_t size = 3;  ///< rows and columns of a matrix

    void BuildMatrixFrame();
    QGroupBox* BuildOptions();
    void Option_Click(std::size_t option);
    void RefreshMatrix();
    void ShowMatrixFrom(eeprom::Address base);
    void mnuClose_Click();

    QGroupBox* fraMatrix_;
    std::array<TextField*, size * size> txtMatrix_{};
    std::array<OptionButton*, matrixOptions.size()> options_{};
};

}  // namespace orbkl4
