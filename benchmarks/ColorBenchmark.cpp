#include <benchmark/benchmark.h>
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/colordlg.h>
#include <wx/dcbuffer.h>
#include <wx/frame.h>
#include <wx/popupwin.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/ColorPicker.h>

#include "FirstPaint.h"
#include "LibraryUp.h"
#include "ShownWindow.h"
#include "models/ColorState.h"
#include "painting/ColorPainting.h"
#include "widgets/ColorSlider.h"
#include "widgets/ColorSliderWithSpinner.h"

namespace {

using namespace Ostrel;

constexpr Rgb COLOR{0.86F, 0.45F, 0.13F, 0.6F};
const wxSize STRIP_SIZE(200, 15);

Wx::ColorPicker* makePicker(wxWindow* parent) {
    return new Wx::ColorPicker(parent, "Color", wxPoint(100, 100), COLOR, Wx::ColorPicker::DialogType::CONFIRM,
                               Wx::ColorPicker::ColorFormat::WITH_ALPHA);
}

/// As many windows as another dialog has, in the toolkit's own: its fields, of which a choice is one, its buttons, of
/// which some are radio buttons, and bare panels for all others.
void copyWindows(const wxWindow& from, wxWindow* to) {
    for (const wxWindow* const child : from.GetChildren()) {
        if (child->IsTopLevel() || dynamic_cast<const wxPopupWindow*>(child) != nullptr) {
            continue;
        }
        const wxRect place = child->GetRect();
        if (dynamic_cast<const wxTextCtrl*>(child) != nullptr) {
            new wxTextCtrl(to, wxID_ANY, "0", place.GetPosition(), place.GetSize(), wxBORDER_NONE);
        } else if (dynamic_cast<const Wx::Button*>(child) != nullptr) {
            new wxButton(to, wxID_ANY, "0", place.GetPosition(), place.GetSize());
        } else if (dynamic_cast<const wxRadioButton*>(child) != nullptr) {
            new wxRadioButton(to, wxID_ANY, "0", place.GetPosition(), place.GetSize());
        } else if (const auto* const choice = dynamic_cast<const wxChoice*>(child)) {
            new wxChoice(to, wxID_ANY, place.GetPosition(), place.GetSize(), choice->GetStrings());
        } else {
            copyWindows(*child, new wxPanel(to, wxID_ANY, place.GetPosition(), place.GetSize()));
        }
    }
}

/// Built, shown and painted for the first time, after a first one. What counts is the processor's time: the rest is
/// waiting for the screen.
template <class Make>
void openDialog(benchmark::State& state, const Make& make) {
    const LibraryUp library;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Owner", wxPoint(50, 50));
    frame->Show();
    LibWx::processAllPendingEvents();
    const auto open = [&] {
        wxDialog* const dialog = make(frame);
        dialog->Show();
        awaitFirstPaint(*dialog);
        return dialog;
    };
    const auto close = [](wxDialog* dialog) {
        dialog->Destroy();
        LibWx::processAllPendingEvents();
    };
    close(open());
    for (auto _ : state) {
        wxDialog* const dialog = open();
        state.PauseTiming();
        close(dialog);
        state.ResumeTiming();
    }
    frame->Destroy();
}

void openColorPicker(benchmark::State& state) {
    openDialog(state, makePicker);
}
BENCHMARK(openColorPicker)->Unit(benchmark::kMillisecond);

void openDialogOfAsManyNativeWindows(benchmark::State& state) {
    const LibraryUp library;
    Wx::ColorPicker* const picker = makePicker(nullptr);
    openDialog(state, [picker](wxWindow* parent) {
        auto* const dialog = new wxDialog(parent, wxID_ANY, "Empty", wxPoint(100, 100), picker->GetSize());
        copyWindows(*picker, dialog);
        return dialog;
    });
    picker->Destroy();
}
BENCHMARK(openDialogOfAsManyNativeWindows)->Unit(benchmark::kMillisecond);

void openToolkitsColourDialog(benchmark::State& state) {
    openDialog(state, [](wxWindow* parent) { return new wxColourDialog(parent); });
}
BENCHMARK(openToolkitsColourDialog)->Unit(benchmark::kMillisecond);

/// A motion of a drag of one row's marker, and the repaint of all views that it changes.
void editOfADraggedSlider(benchmark::State& state) {
    const LibraryUp library;
    Wx::ColorPicker* const picker = makePicker(nullptr);
    picker->Show();
    LibWx::processAllPendingEvents();
    Array<Wx::ColorSliderWithSpinner*> rows;
    for (wxWindow* const child : picker->GetChildren()) {
        if (auto* const row = dynamic_cast<Wx::ColorSliderWithSpinner*>(child)) {
            rows.push_back(row);
        }
    }
    Wx::ColorSlider& slider = rows[static_cast<std::size_t>(state.range(0))]->getSlider();
    slider.CaptureMouse();
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 190;
        wxMouseEvent event(wxEVT_MOTION);
        event.SetEventObject(&slider);
        event.SetPosition(wxPoint(x, 5));
        slider.ProcessWindowEvent(event);
        picker->Update();
    }
    slider.ReleaseMouse();
    picker->Destroy();
}
BENCHMARK(editOfADraggedSlider)->ArgName("row")->Arg(0)->Arg(4)->Arg(7)->Unit(benchmark::kMicrosecond);

void colorField(benchmark::State& state) {
    const LibraryUp library;
    const wxSize size(static_cast<int>(state.range(0)), static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Wx::makeColorField(size));
    }
}
BENCHMARK(colorField)->Arg(234)->Arg(1024)->Unit(benchmark::kMicrosecond);

/// The same field by the toolkit's conversion of each pixel.
void colorFieldByPixels(benchmark::State& state) {
    const LibraryUp library;
    const int size = static_cast<int>(state.range(0));
    for (auto _ : state) {
        wxImage image(size, size, false);
        unsigned char* target = image.GetData();
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const wxImage::RGBValue color = wxImage::HSVtoRGB(
                    wxImage::HSVValue(static_cast<double>(x) / size, 1.0, 1.0 - static_cast<double>(y) / size));
                *target++ = color.red;
                *target++ = color.green;
                *target++ = color.blue;
            }
        }
        benchmark::DoNotOptimize(wxBitmap(image));
    }
}
BENCHMARK(colorFieldByPixels)->Arg(234)->Arg(1024)->Unit(benchmark::kMicrosecond);

/// A strip, or a window of its size, is painted on the screen again and again. What counts is the processor's time: the
/// rest is waiting for the screen.
template <class Window, class Change>
void repaint(benchmark::State& state, Window* (*make)(wxWindow*), const Change& change) {
    ShownWindow<Window> shown(STRIP_SIZE, make);
    for (auto _ : state) {
        change(shown.window());
        shown.window().Refresh();
        shown.paintOnScreen();
    }
}

Wx::ColorSlider* makeSlider(wxWindow* parent) {
    return new Wx::ColorSlider(
        [](float position) {
            return Rgb{position, COLOR.green, COLOR.blue};
        },
        parent, STRIP_SIZE);
}

void repaintStrip(benchmark::State& state) {
    repaint(state, makeSlider, [](Wx::ColorSlider&) {});
}
BENCHMARK(repaintStrip)->Unit(benchmark::kMicrosecond);

/// Other colours each time.
void repaintChangedStrip(benchmark::State& state) {
    repaint(state, makeSlider, [](Wx::ColorSlider& slider) { slider.refreshStrip(); });
}
BENCHMARK(repaintChangedStrip)->Unit(benchmark::kMicrosecond);

void repaintPanelOfAPoint(benchmark::State& state) {
    repaint<wxPanel>(
        state,
        [](wxWindow* parent) {
            auto* const window = new wxPanel(parent, wxID_ANY, wxDefaultPosition, STRIP_SIZE, wxBORDER_NONE);
            window->SetBackgroundStyle(wxBG_STYLE_PAINT);
            window->Bind(wxEVT_PAINT, [window](wxPaintEvent&) {
                wxAutoBufferedPaintDC dc(window);
                dc.DrawPoint(5, 5);
            });
            return window;
        },
        [](wxPanel&) {});
}
BENCHMARK(repaintPanelOfAPoint)->Unit(benchmark::kMicrosecond);

void sampleScreen(benchmark::State& state) {
    const LibraryUp library;
    const int radius = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const BitmapImpl<Rgb> pixels = Wx::getScreenRegionColors(Wx::getSampleRegion({300, 300}, radius));
        benchmark::DoNotOptimize(Wx::averageSample({pixels.data(), pixels.size()}));
    }
}
BENCHMARK(sampleScreen)->ArgName("radius")->Arg(0)->Arg(15)->Unit(benchmark::kMicrosecond);

} // namespace
