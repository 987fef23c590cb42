#include <benchmark/benchmark.h>
#include <wx/choice.h>
#include <wx/odcombo.h>

#include <OstrelLibWx/widgets/ComboBox.h>

#include "ChoiceList.h"
#include "Screen.h"
#include "Turns.h"

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

void releaseMouse(wxWindow& window, wxPoint point) {
    wxMouseEvent event(wxEVT_LEFT_UP);
    event.SetEventObject(&window);
    event.SetPosition(point);
    window.ProcessWindowEvent(event);
}

// The three boxes, each alone on the screen or beside the others. An open list has been painted at once, which a window
// manager would let wait; the window manager's part in opening is not measured.

class OwnBox {
public:
    OwnBox(const Screen& screen, std::int64_t count)
        : _screen(screen)
        , _box(new Wx::ComboBox(
              screen.frame, wxID_ANY, 150, {},
              [this](wxWindow* window, Wx::ComboBox::WindowEvent) {
                  _canvas = window->GetChildren().Item(0)->GetData();
              },
              true)) {
        _box->setData(makeItems(count));
        _box->selectIndex(0, false);
    }
    Wx::ComboBox& box() { return *_box; }
    wxWindow& list() { return *_canvas; }
    void open() {
        _box->open();
        _canvas->Update();
    }
    void close() {
        if (_box->isOpen()) {
            Screen::awaitPaint(*_canvas);
            _box->close();
        }
        _screen.awaitFocus();
    }
    void showLast() {
        wxKeyEvent end(wxEVT_CHAR_HOOK);
        end.m_keyCode = WXK_END;
        _box->ProcessWindowEvent(end);
        _canvas->Update();
    }
    void choose() {
        releaseMouse(*_canvas, wxPoint(10, _canvas->GetClientSize().y - 30));
        _box->Update();
    }

private:
    const Screen& _screen;
    wxWindow* _canvas{};
    Wx::ComboBox* _box;
};

class OwnerDrawnBox {
public:
    OwnerDrawnBox(const Screen& screen, std::int64_t count)
        : _screen(screen)
        , _box(new wxOwnerDrawnComboBox(screen.frame, wxID_ANY, wxString(), wxPoint(0, 0), wxSize(150, -1),
                                        makeStrings(count), wxCB_READONLY)) {
        _box->SetSelection(0);
    }
    wxWindow& list() { return *_box->GetPopupControl()->GetControl(); }
    void open() {
        _box->Popup();
        list().Update();
    }
    void close() {
        if (_box->IsPopupShown()) {
            Screen::awaitPaint(list());
            _box->Dismiss();
        }
        _screen.awaitFocus();
    }
    void showLast() {
        _box->SetSelection(static_cast<int>(_box->GetCount()) - 1);
        list().Update();
    }
    void choose() {
        releaseMouse(list(), wxPoint(10, list().GetClientSize().y - 30));
        _box->Update();
    }

private:
    const Screen& _screen;
    wxOwnerDrawnComboBox* _box;
};

/// The list is the system's own, whose last row can only be chosen from outside.
class ChoiceBox {
public:
    ChoiceBox(const Screen& screen, std::int64_t count)
        : _screen(screen)
        , _box(new wxChoice(screen.frame, wxID_ANY, wxPoint(0, 0), wxSize(150, -1), makeStrings(count))) {
        _box->SetSelection(0);
    }
    void open() { openChoiceList(*_box); }
    void close() {
        closeChoiceList(*_box);
        _screen.awaitFocus();
    }
    void showLast() { _box->SetSelection(static_cast<int>(_box->GetCount()) - 1); }
    void choose() {
        closeChoiceList(*_box);
        _box->Update();
    }

private:
    const Screen& _screen;
    wxChoice* _box;
};

void comboBoxSetData(benchmark::State& state) {
    const Screen screen;
    OwnBox own(screen, 10);
    const Array<Wx::ComboBox::Item> items = makeItems(state.range(0));
    for (auto _ : state) {
        own.box().setData(items);
    }
}
BENCHMARK(comboBoxSetData)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

template <class Control>
void setData(benchmark::State& state) {
    const Screen screen;
    auto* const control = new Control(screen.frame, wxID_ANY);
    const wxArrayString strings = makeStrings(state.range(0));
    for (auto _ : state) {
        control->Set(strings);
    }
}

template <class Box>
void open(benchmark::State& state) {
    const Screen screen;
    Box box(screen, state.range(0));
    for (auto _ : state) {
        box.open();
        state.PauseTiming();
        box.close();
        state.ResumeTiming();
    }
}

/// Open, scroll to the last row, choose the one above it.
template <class Box>
void choose(benchmark::State& state) {
    const Screen screen;
    Box box(screen, state.range(0));
    for (auto _ : state) {
        box.open();
        box.showLast();
        box.choose();
        state.PauseTiming();
        box.close();
        state.ResumeTiming();
    }
}

/// A notch of the wheel over the open list, and the painting that follows.
void comboBoxWheel(benchmark::State& state) {
    const Screen screen;
    OwnBox own(screen, state.range(0));
    own.open();
    Screen::awaitPaint(own.list());
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.SetEventObject(&own.list());
    wheel.m_wheelRotation = 120;
    for (auto _ : state) {
        wheel.m_wheelRotation = -wheel.m_wheelRotation;
        own.list().ProcessWindowEvent(wheel);
        own.list().Update();
    }
}
BENCHMARK(comboBoxWheel)->Arg(10)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// The numbers of rows. GTK fills a wxChoice in a time that grows with their square, half a minute of the processor for
/// 10,000: there the comparison stops at 1,000.
bool registerAll() {
    using Measure = void (*)(benchmark::State&);
    const auto add = [](const char* name, Measure measure, std::initializer_list<std::int64_t> counts) {
        auto* const made = benchmark::RegisterBenchmark(name, measure)->Unit(benchmark::kMillisecond);
        for (const std::int64_t count : counts) {
            made->Arg(count);
        }
        return made;
    };
    add("wxChoiceSetData", setData<wxChoice>, {100, 1'000});
    add("wxOwnerDrawnComboBoxSetData", setData<wxOwnerDrawnComboBox>, {100, 10'000, 1'000'000});
    constexpr int OPENINGS = 50; // each waits for the window manager besides
    add("comboBoxOpen", open<OwnBox>, {10, 100, 10'000, 1'000'000})->Iterations(OPENINGS);
    add("wxChoiceOpen", open<ChoiceBox>, {10, 100, 1'000})->Iterations(OPENINGS);
    add("wxOwnerDrawnComboBoxOpen", open<OwnerDrawnBox>, {10, 100, 10'000, 1'000'000})->Iterations(OPENINGS);
    add("comboBoxChoose", choose<OwnBox>, {100, 10'000, 1'000'000})->Iterations(OPENINGS);
    add("wxChoiceChoose", choose<ChoiceBox>, {100, 1'000})->Iterations(OPENINGS);
    add("wxOwnerDrawnComboBoxChoose", choose<OwnerDrawnBox>, {100, 10'000, 1'000'000})->Iterations(OPENINGS);
    return true;
}
const bool registered = registerAll();

/// Opening with a million rows, in turns with ten rows and with the toolkit's boxes with a hundred: "of_ten" is how
/// many times as long it takes as with ten (wanted: 1.2 at most), the others how many times as long the toolkit's take
/// (wanted: more than 1).
void comboBoxOpenInTurns(benchmark::State& state) {
    const Screen screen;
    OwnBox million(screen, 1'000'000);
    OwnBox ten(screen, 10);
    OwnerDrawnBox ownerDrawn(screen, 100);
    ChoiceBox choice(screen, 100);
    std::vector<double> times[4];
    const auto measure = [&times](std::size_t index, auto& box) {
        times[index].push_back(measureSeconds([&box] { box.open(); }));
        box.close();
    };
    for (auto _ : state) {
        measure(0, million);
        measure(1, ten);
        measure(2, ownerDrawn);
        measure(3, choice);
        state.SetIterationTime(times[0].back());
    }
    const double own = median(times[0]);
    state.counters["of_ten"] = own / median(times[1]);
    state.counters["ownerdrawn_100"] = median(times[2]) / own;
    state.counters["choice_100"] = median(times[3]) / own;
}
BENCHMARK(comboBoxOpenInTurns)->UseManualTime()->Iterations(50)->Unit(benchmark::kMillisecond);

/// A painted list whose highlight moves between two rows.
void comboBoxHover(benchmark::State& state) {
    const Screen screen;
    OwnBox own(screen, state.range(0));
    own.open();
    Screen::awaitPaint(own.list());
    int y = 30;
    for (auto _ : state) {
        y = 120 - y;
        wxMouseEvent motion(wxEVT_MOTION);
        motion.SetEventObject(&own.list());
        motion.SetPosition(wxPoint(10, y));
        own.list().ProcessWindowEvent(motion);
        own.list().Update();
    }
}
BENCHMARK(comboBoxHover)->Arg(10)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

} // namespace
