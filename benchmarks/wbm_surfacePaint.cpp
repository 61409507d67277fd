// SPDX-License-Identifier: GPL-3.0-or-later
// The cost of painting a form of 2,000 controls: as a whole, for one step of a drag, and for each kind alone.
#include "guibuilder/frmSurfacePaint.h"
#include "guibuilder/modDesigner.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int ControlCount = 2000;
constexpr int SurfaceWidth = 1000;
constexpr int SurfaceHeight = 800;
constexpr int Columns = 50;
constexpr int TwipsPerPixel = 15;
constexpr ob::SurfaceScale Scale = {TwipsPerPixel, TwipsPerPixel};
constexpr int Hundred = 100; // a screen's scale is in hundredths

ob::ControlRef Put(ob::GuiForm& form, ob::ControlKind kind, QRect place)
{
    const ob::ControlRef ref = ob::AddControl(form, kind);
    ob::ControlRecord& control = form.At(ref);
    control.visible = true;
    control.caption = ob::NewCaption(kind, ref.index);
    control.left = static_cast<float>(place.x() * TwipsPerPixel);
    control.top = static_cast<float>(place.y() * TwipsPerPixel);
    control.width = static_cast<float>(place.width() * TwipsPerPixel);
    control.height = static_cast<float>(place.height() * TwipsPerPixel);
    return ref;
}

// Controls of typical sizes, of all kinds in turn, overlapping as 2,000 must on that surface.
ob::GuiForm CrowdedForm()
{
    ob::GuiForm form;
    constexpr int stepX = SurfaceWidth / Columns;
    constexpr int stepY = SurfaceHeight / (ControlCount / Columns);
    for (int number = 0; number < ControlCount; ++number) {
        const ob::KindTraits& traits = ob::KindTable[static_cast<std::size_t>(number) % ob::KindCount];
        Put(form, traits.kind, {number % Columns * stepX, number / Columns * stepY, traits.width, traits.height});
    }
    return form;
}

QImage Surface(double scale)
{
    QImage image((QSizeF(SurfaceWidth, SurfaceHeight) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    return image;
}

// As the drawing surface does it.
void PaintPart(QImage& image, const QRegion& region, const ob::SurfaceStyle& style, const ob::GuiForm& form)
{
    QPainter painter(&image);
    painter.setClipRegion(region);
    painter.fillRect(region.boundingRect(), style.surface);
    ob::PaintGrid(painter, region.boundingRect(), form, Scale);
    for (const ob::ControlRef ref : form.order)
        if (region.intersects(ob::PaintedRect(form, ref, Scale)))
            ob::PaintControl(painter, style, form, ref);
}

void PaintWholeForm(benchmark::State& state)
{
    const ob::GuiForm form = CrowdedForm();
    const ob::SurfaceStyle style(form, Scale);
    QImage image = Surface(static_cast<double>(state.range(0)) / Hundred);
    for (auto _ : state)
        PaintPart(image, QRect(0, 0, SurfaceWidth, SurfaceHeight), style, form);
}
BENCHMARK(PaintWholeForm)->Arg(100)->Arg(150)->Arg(200)->Unit(benchmark::kMillisecond);

// The first time after a change of fonts or colours: every text is laid out.
void PaintWholeFormAnew(benchmark::State& state)
{
    const ob::GuiForm form = CrowdedForm();
    QImage image = Surface(1);
    for (auto _ : state) {
        const ob::SurfaceStyle style(form, Scale);
        PaintPart(image, QRect(0, 0, SurfaceWidth, SurfaceHeight), style, form);
    }
}
BENCHMARK(PaintWholeFormAnew)->Unit(benchmark::kMillisecond);

// A text editor in the middle of the crowd moves one snap to the right: its old and its new place are painted.
void DragStep(benchmark::State& state)
{
    ob::GuiForm form = CrowdedForm();
    const ob::SurfaceStyle style(form, Scale);
    QImage image = Surface(static_cast<double>(state.range(0)) / Hundred);
    const ob::ControlRef dragged = Put(form, ob::ControlKind::Texteditor, {400, 300, 80, 80});
    const auto place = [&] { return ob::PaintedRect(form, dragged, Scale); };
    int steps = 0;
    for (auto _ : state) {
        const QRect before = place();
        form.At(dragged).left = static_cast<float>((400 + steps++ % 20 * ob::SnapPixels) * TwipsPerPixel);
        PaintPart(image, QRegion(before) + place(), style, form);
    }
}
BENCHMARK(DragStep)->Arg(100)->Arg(150)->Arg(200)->Unit(benchmark::kMillisecond);

void PaintOneControl(benchmark::State& state)
{
    ob::GuiForm form;
    const ob::KindTraits& traits = ob::KindTable[static_cast<std::size_t>(state.range(0))];
    const ob::ControlRef ref = Put(form, traits.kind, {10, 10, traits.width, traits.height});
    const ob::SurfaceStyle style(form, Scale);
    QImage image = Surface(static_cast<double>(state.range(1)) / Hundred);
    QPainter painter(&image);
    for (auto _ : state)
        ob::PaintControl(painter, style, form, ref);
    state.SetLabel(std::string(traits.toolName));
}
BENCHMARK(PaintOneControl)
    ->ArgsProduct({benchmark::CreateDenseRange(0, static_cast<int>(ob::KindCount) - 1, 1), {100, 200}})
    ->Unit(benchmark::kMicrosecond);

void PaintGridWhole(benchmark::State& state)
{
    const ob::GuiForm form;
    QImage image = Surface(static_cast<double>(state.range(0)) / Hundred);
    QPainter painter(&image);
    for (auto _ : state)
        ob::PaintGrid(painter, {0, 0, SurfaceWidth, SurfaceHeight}, form, Scale);
}
BENCHMARK(PaintGridWhole)->Arg(100)->Arg(200)->Unit(benchmark::kMicrosecond);

// The cost of a caption without the style's cache, next to DrawRememberedText.
void DrawPlainText(benchmark::State& state)
{
    const ob::SurfaceStyle style(ob::GuiForm(), Scale);
    QImage image = Surface(1);
    QPainter painter(&image);
    painter.setFont(style.font);
    for (auto _ : state)
        painter.drawText(QRect(10, 10, 80, 30), Qt::AlignCenter | Qt::TextShowMnemonic, u"Button  12"_s);
}
BENCHMARK(DrawPlainText)->Unit(benchmark::kMicrosecond);

void DrawRememberedText(benchmark::State& state)
{
    const ob::SurfaceStyle style(ob::GuiForm(), Scale);
    QImage image = Surface(1);
    QPainter painter(&image);
    for (auto _ : state)
        for (const QGlyphRun& run : style.Line(u"Button  12"_s, ob::Ampersands::Mark).runs)
            painter.drawGlyphRun(QPointF(10, 10), run);
}
BENCHMARK(DrawRememberedText)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
