// SPDX-License-Identifier: GPL-3.0-or-later
// Instructions for making an icon from a part of a picture.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class dlgBmp;
}

namespace ob {

class dlgBmp final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "icon-editor";

    // Whether it is still shown: until the user ticks its box, or the program ends.
    static inline bool isWanted = true;

    explicit dlgBmp(QWidget* parent = nullptr);
    ~dlgBmp() override;

private:
    std::unique_ptr<Ui::dlgBmp> ui;
};

} // namespace ob
