// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a compressor.
#pragma once

#include "imagetools/avi/modAvi.h"
#include "imagetools/avi/modAviCodecs.h"

#include <QDialog>

#include <memory>
#include <vector>

namespace Ui {
class dlgAviOptions;
}

namespace ob {

// For frames of that format; OK is enabled only for compressors that accept them.
class dlgAviOptions final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "avi-maker";

    dlgAviOptions(const AviFormat& frames, QWidget* parent);
    ~dlgAviOptions() override;

    AviOptions Options() const;

private:
    void lstCodec_Click();
    void sldQuality_Change();

    std::unique_ptr<Ui::dlgAviOptions> ui;
    std::vector<AviCodec> codecs;
    AviFormat frames;
};

} // namespace ob
