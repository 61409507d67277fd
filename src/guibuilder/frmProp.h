// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of one control of the form under design.
#pragma once

#include "guibuilder/modGui.h"
#include "guibuilder/modProperties.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmProp;
}

namespace ob {

// How the dialog ended. Confirmed also when OK had stored the fields in the control, then asked for a bitmap, and the
// dialog was cancelled after that.
enum class PropEnd { Cancelled, Confirmed, Deleted };

class frmProp final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "control-properties";

    frmProp(ControlRef edited, const QString& kindWord, QWidget* parent = nullptr);
    ~frmProp() override;

    PropEnd End() const { return end; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void ShowFields(const PropertyFields& fields);
    PropertyTexts Texts() const;
    void ShowPreview();
    void TintDelete();
    void cmdBitmap_Click();
    void cmdDelete_Click();
    void OKButton_Click();
    void Apply(ControlFate fate);

    std::unique_ptr<Ui::frmProp> ui;
    ControlRef control;
    PropEnd end = PropEnd::Cancelled;
};

// Shows the dialog modally over the main window, titled with the kind word (KindTraits::propWord) of the control; does
// nothing while a form is being loaded. Refreshes the form if it has changed.
PropEnd ShowProp(ControlRef control, const QString& kindWord);

} // namespace ob
