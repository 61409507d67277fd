// SPDX-License-Identifier: GPL-3.0-or-later
// A box to choose one of the language's colours by name, each next to a swatch of it.
#pragma once

#include <QComboBox>

namespace ob {

// The entries are those of ColorName, in its order.
class frmColorPicker final : public QComboBox {
    Q_OBJECT

public:
    explicit frmColorPicker(QWidget* parent = nullptr);

    // Chooses the colour of that name, case-sensitive. An unknown name chooses nothing: it is shown in place of a
    // choice and remains the picker's name until the user chooses a colour.
    void SelectName(const QString& name);
    QString Name() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void PaintSwatches();
    QIcon Swatch(int color) const;
};

} // namespace ob
