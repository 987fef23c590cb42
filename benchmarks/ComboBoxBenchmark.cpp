#include <benchmark/benchmark.h>
#include <wx/choice.h>
#include <wx/odcombo.h>

#include <OstrelLibWx/widgets/ComboBox.h>

#include "Screen.h"

namespace {

using namespace Ostrel;

Array<Wx::ComboBox::Item> makeItems(std::int64_t count) {
    Array<Wx::ComboBox::Item> items;
    items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < static_cast<int>(count); ++i) {
        items.push_back({"Row " + String(std::to_wstring(i)), i});
    }
    return items;
}

wxArrayString makeStrings(std::int64_t count) {
    wxArrayString strings;
    for (std::int64_t i = 0; i < count; ++i) {
        strings.Add("Row " + std::to_wstring(i));
    }
    return strings;
}

struct OwnBox {
    explicit OwnBox(std::int64_t count)
        : box(new Wx::ComboBox(
              screen.frame, wxID_ANY, 150, {},
              [this](wxWindow* window, Wx::ComboBox::WindowEvent) {
                  canvas = window->GetChildren().GetFirst()->GetData();
              },
              true)) {
        box->setData(makeItems(count));
        box->selectIndex(0, false);
    }

    /// Opens the list and has it painted at once, which a window manager would let wait.
    void open() {
        box->open();
        canvas->Update();
    }

    Screen screen{};
    wxWindow* canvas{};
    Wx::ComboBox* box;
};

void comboBoxSetData(benchmark::State& state) {
    OwnBox own(10);
    const Array<Wx::ComboBox::Item> items = makeItems(state.range(0));
    for (auto _ : state) {
        own.box->setData(items);
    }
}
BENCHMARK(comboBoxSetData)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

template <class Control>
void toolkitSetData(benchmark::State& state) {
    const Screen screen;
    auto* const control = new Control(screen.frame, wxID_ANY);
    const wxArrayString strings = makeStrings(state.range(0));
    for (auto _ : state) {
        control->Set(strings);
    }
}
void wxChoiceSetData(benchmark::State& state) {
    toolkitSetData<wxChoice>(state);
}
void wxOwnerDrawnComboBoxSetData(benchmark::State& state) {
    toolkitSetData<wxOwnerDrawnComboBox>(state);
}
BENCHMARK(wxChoiceSetData)->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);
BENCHMARK(wxOwnerDrawnComboBoxSetData)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// Up to the list's first painting; the window manager's part in it is not measured.
void comboBoxOpen(benchmark::State& state) {
    OwnBox own(state.range(0));
    for (auto _ : state) {
        own.open();
        state.PauseTiming();
        Screen::awaitPaint(*own.canvas);
        own.box->close();
        own.screen.awaitFocus();
        state.ResumeTiming();
    }
}
BENCHMARK(comboBoxOpen)->Iterations(50)->Arg(10)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void wxOwnerDrawnComboBoxOpen(benchmark::State& state) {
    const Screen screen;
    auto* const control = new wxOwnerDrawnComboBox(screen.frame, wxID_ANY, wxString(), wxPoint(0, 0), wxSize(150, -1),
                                                   makeStrings(state.range(0)), wxCB_READONLY);
    for (auto _ : state) {
        control->Popup();
        control->GetPopupControl()->GetControl()->Update();
        state.PauseTiming();
        Screen::awaitPaint(*control->GetPopupControl()->GetControl());
        control->Dismiss();
        screen.awaitFocus();
        state.ResumeTiming();
    }
}
BENCHMARK(wxOwnerDrawnComboBoxOpen)
    ->Iterations(50)
    ->Arg(10)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

/// Open, go to the last row by key, choose the one above it by a click.
void comboBoxScrollToTheLastAndChoose(benchmark::State& state) {
    OwnBox own(state.range(0));
    wxKeyEvent end(wxEVT_CHAR_HOOK);
    end.m_keyCode = WXK_END;
    for (auto _ : state) {
        own.open();
        own.box->ProcessWindowEvent(end);
        own.canvas->Update();
        wxMouseEvent up(wxEVT_LEFT_UP);
        up.SetEventObject(own.canvas);
        up.SetPosition(wxPoint(10, own.canvas->GetClientSize().y - 30));
        own.canvas->ProcessWindowEvent(up);
        state.PauseTiming();
        own.screen.awaitFocus();
        state.ResumeTiming();
    }
}
BENCHMARK(comboBoxScrollToTheLastAndChoose)
    ->Iterations(50)
    ->Arg(100)
    ->Arg(10'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

/// A painted list whose highlight moves between two rows.
void comboBoxHover(benchmark::State& state) {
    OwnBox own(state.range(0));
    own.open();
    Screen::awaitPaint(*own.canvas);
    int y = 30;
    for (auto _ : state) {
        y = 120 - y;
        wxMouseEvent motion(wxEVT_MOTION);
        motion.SetEventObject(own.canvas);
        motion.SetPosition(wxPoint(10, y));
        own.canvas->ProcessWindowEvent(motion);
        own.canvas->Update();
    }
}
BENCHMARK(comboBoxHover)->Arg(10)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

} // namespace
