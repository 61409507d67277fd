// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen, for tests: presses, pulls and clicks in pixels.
#pragma once

#include "core/CoreBench.h"
#include "guibuilder/cDesigner.h"

#include <memory>

namespace ob {

using Button = cDesigner::MouseButton;
using Mode = cDesigner::PressMode;
using Kind = cDesigner::Request::Kind;

inline SurfacePoint At(int x, int y)
{
    return {static_cast<float>(x * 15), static_cast<float>(y * 15)};
}

inline SurfaceRect Px(int left, int top, int width, int height)
{
    return {static_cast<float>(left * 15), static_cast<float>(top * 15), static_cast<float>(width * 15),
            static_cast<float>(height * 15)};
}

class DesignerBench : public QObject {
protected:
    std::unique_ptr<CoreBench> bench;
    std::unique_ptr<cDesigner> designer;

    ControlRef Put(ControlKind kind, const SurfaceRect& rect)
    {
        const ControlRef ref = AddControl(GuiDesign().form, kind);
        SetRect(GuiDesign().form.At(ref), rect);
        GuiDesign().form.At(ref).visible = true;
        designer->Restart();
        return ref;
    }

    void Pull(SurfacePoint from, SurfacePoint to, Mode mode = Mode::Plain)
    {
        designer->Press(from, Button::Left, mode);
        designer->Drag({(from.x + to.x) / 2, (from.y + to.y) / 2});
        designer->Drag(to);
        designer->Release(to, Button::Left);
    }

    void Click(SurfacePoint point, Mode mode = Mode::Plain)
    {
        designer->Press(point, Button::Left, mode);
        designer->Release(point, Button::Left);
    }

    SurfaceRect Rect(ControlRef ref) const { return RectOf(GuiDesign().form.At(ref)); }

    void Begin()
    {
        bench = std::make_unique<CoreBench>();
        designer = std::make_unique<cDesigner>(GuiDesign(), SurfaceScale());
    }
    void End()
    {
        designer.reset();
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }
};

} // namespace ob
