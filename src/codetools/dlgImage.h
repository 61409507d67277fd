// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the standard pictures for toolbar buttons. The number of the chosen picture, or 0, is stored in the
// application's state.
#pragma once

#include <QDialog>
#include <QImage>

#include <memory>

namespace Ui {
class dlgImage;
}

namespace ob {

class dlgImage final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "toolbar-maker";

    explicit dlgImage(QWidget* parent = nullptr);
    ~dlgImage() override;

    // The standard picture of that number, from 1 to StandardImageCount.
    static QImage StandardImage(int number);
    static int StandardImageCount();

    void reject() override;

private:
    enum class Step { Back = -1, Next = 1 };
    void cmdNext_Click(Step step);
    void ShowImage();

    std::unique_ptr<Ui::dlgImage> ui;
};

} // namespace ob
