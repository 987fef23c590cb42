#include "models/ComboBoxModel.h"

#include <gtest/gtest.h>

#include <limits>

namespace Ostrel::Wx {
namespace {

constexpr int MAX = std::numeric_limits<int>::max();

ComboBoxModel makeModel(std::initializer_list<const char*> texts, int selected) {
    Array<ComboBoxItem> items;
    for (const char* const text : texts) {
        items.push_back({text, static_cast<int>(items.size()) * 10});
    }
    ComboBoxModel model;
    model.setItems(items);
    model.selectIndex(selected);
    return model;
}

TEST(ComboBoxRows, AlignWithTheScrollUnitAtEveryScale) {
    struct Case {
        int unit, wanted, rowHeight;
    };
    for (const Case& c : {Case{6, 18, 18}, {8, 23, 24}, {9, 27, 27}, {7, 22, 28}, {12, 36, 36}}) {
        const ComboBoxRows rows(c.unit, c.wanted);
        EXPECT_EQ(rows.getRowHeight(), c.rowHeight);
        EXPECT_EQ(rows.getHeight(17), 17 * c.rowHeight + 2);
        for (const int index : {0, 1, 16}) {
            const int top = rows.getTop(index);
            EXPECT_EQ(rows.findRow(top, 17), index);
            EXPECT_EQ(rows.findRow(top + c.rowHeight - 1, 17), index);
        }
        EXPECT_EQ(rows.findRow(0, 17), 0) << "the margin";
        EXPECT_FALSE(rows.findRow(-1, 17));
        EXPECT_FALSE(rows.findRow(rows.getHeight(17), 17));
        EXPECT_FALSE(rows.findRow(5, 0));
    }
    EXPECT_EQ(ComboBoxRows(6, 18).getHeight(MAX), MAX);
}

TEST(ComboBoxRows, ScrollNoFurtherThanIntoView) {
    const ComboBoxRows rows(6, 18); // three units a row
    struct Case {
        int index, position, height;
        Optional<int> expected;
    };
    for (const Case& c : {Case{0, 0, 308, {}},
                          {16, 0, 308, {}},
                          {17, 0, 308, 3},
                          {19, 0, 308, 9},
                          {999'999, 0, 308, 2'999'949},
                          {999'999, 2'999'949, 308, {}},
                          {2, 9, 308, 6},
                          {0, 2'999'949, 308, 0},
                          {10, 9, 308, {}},
                          {3, 9, 308, {}},
                          {3, 10, 308, {}}, // its first two thirds are seen
                          {3, 11, 308, 9},
                          {5, 0, 60, 8},
                          {1, 0, 20, 3}}) {
        EXPECT_EQ(rows.scrollIntoView(c.index, c.position, c.height), c.expected) << c.index << " at " << c.position;
    }
}

TEST(ComboBoxPlace, IsUnderTheBoxOrElseWhereThereIsRoom) {
    constexpr Bucket AREA{{0, 0}, {1000, 700}};
    const ComboBoxRows rows(6, 18);
    struct Case {
        const char* name;
        Bucket box;
        int count;
        Bucket window;
        int rows;
    };
    for (const Case& c : {Case{"three rows", {{100, 100}, {250, 120}}, 3, {{100, 120}, {250, 178}}, 3},
                          {"many rows", {{100, 100}, {250, 120}}, 1'000'000, {{100, 120}, {250, 430}}, 17},
                          {"to the last pixel", {{100, 370}, {250, 390}}, 20, {{100, 390}, {250, 700}}, 17},
                          {"above", {{100, 371}, {250, 391}}, 20, {{100, 61}, {250, 371}}, 17},
                          {"moved right", {{-30, 100}, {120, 120}}, 3, {{0, 120}, {150, 178}}, 3},
                          {"moved left", {{900, 100}, {1050, 120}}, 3, {{850, 120}, {1000, 178}}, 3},
                          {"a high box", {{100, 200}, {250, 600}}, 20, {{100, 0}, {250, 200}}, 10},
                          {"a higher box", {{100, 10}, {250, 690}}, 20, {{100, 690}, {250, 712}}, 1}}) {
        const ComboBoxPlace place = placeComboBoxList(c.box, rows, c.count, 1, AREA);
        EXPECT_EQ(place.rows, c.rows) << c.name;
        EXPECT_EQ(place.window.max, c.window.max) << c.name;
        EXPECT_EQ(place.window.min.x, c.window.min.x) << c.name;
    }
}

TEST(ComboBoxSelection, MovesAndStopsAtTheEnds) {
    using enum ComboBoxMove;
    struct Case {
        int from;
        ComboBoxMove move;
        Optional<int> to;
    };
    for (const Case& c : {Case{1, PREVIOUS, 0},
                          {0, PREVIOUS, 0},
                          {1, NEXT, 2},
                          {2, NEXT, 2},
                          {2, FIRST, 0},
                          {0, LAST, 2},
                          {-1, PREVIOUS, {}},
                          {-1, NEXT, 0},
                          {7, LAST, 2}}) {
        ComboBoxModel model = makeModel({"a", "b", "c"}, c.from);
        const Optional<int> before = model.getSelected();
        EXPECT_EQ(model.move(c.move), before != c.to) << c.from;
        EXPECT_EQ(model.getSelected(), c.to) << c.from;
        EXPECT_FALSE(makeModel({}, 0).move(c.move));
    }
    ComboBoxModel model = makeModel({"a", "b", "c"}, 0);
    model.highlight(2);
    EXPECT_TRUE(model.moveFromHighlighted(NEXT)) << "to the highlighted one, which is the last";
    EXPECT_EQ(model.getSelected(), 2);
    EXPECT_FALSE(model.moveFromHighlighted(NEXT));
    EXPECT_TRUE(model.moveFromHighlighted(PREVIOUS));
    EXPECT_EQ(model.getSelected(), 1);
}

TEST(ComboBoxSelection, IsNeverWhereNoRowIs) {
    ComboBoxModel model;
    const ComboBoxItem items[] = {{"a", 5}, {"b", 7}, {"c", 5}};
    model.setItems(items);
    EXPECT_TRUE(model.selectId(5));
    EXPECT_EQ(model.getSelected(), 2) << "the last of them";
    EXPECT_FALSE(model.selectId(6));
    EXPECT_EQ(model.getSelectedItem(), nullptr);
    for (const int index : {-1, 3, MAX, std::numeric_limits<int>::min()}) {
        model.selectIndex(1);
        model.selectIndex(index);
        EXPECT_FALSE(model.getSelected()) << index;
        model.highlight(index);
        EXPECT_FALSE(model.getHighlighted()) << index;
    }
    model.selectIndex(1);
    model.highlight(2);
    model.setItems(ArrayView<const ComboBoxItem>(items, 2));
    EXPECT_EQ(model.getSelected(), 1);
    EXPECT_FALSE(model.getHighlighted());
    model.setItems({});
    EXPECT_FALSE(model.getSelected());
}

TEST(ComboBoxTyping, GoesToTheNextRowThatBeginsWithIt) {
    ComboBoxModel model = makeModel({"Linear", "Logarithmic", "linear light", "Cubic", "\xC3\x89tage"}, -1);
    struct Case {
        wchar_t character;
        double pause;
        Optional<int> expected;
    };
    for (const Case& c : {Case{L'l', 5000, 0}, // a pause begins anew
                          {L'l', 10, 1},       // the same again goes on
                          {L'l', 10, 2},
                          {L'l', 10, 0}, // round the end
                          {L'L', 5000, 1},
                          {L'i', 10, 2}, // more of a word stays where it can
                          {L'n', 10, 2},
                          {L'x', 10, 2}, // no such row
                          {L'c', 1001, 3},
                          {L'c', 10, 3}}) {
        model.type(c.character, c.pause);
        EXPECT_EQ(model.getSelected(), c.expected) << static_cast<char>(c.character);
    }
    EXPECT_FALSE(makeModel({}, 0).type(L'a', 0));
}

} // namespace
} // namespace Ostrel::Wx
