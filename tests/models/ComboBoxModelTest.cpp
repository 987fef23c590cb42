#include "models/ComboBoxModel.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace Ostrel::Wx {
namespace {

constexpr int MAX = std::numeric_limits<int>::max();

ComboBoxModel makeModel(std::initializer_list<const char*> texts, int selected) {
    Array<ComboBoxItem> items;
    for (const char* const text : texts) {
        items.push_back({text, static_cast<int>(items.size()) % 2});
    }
    ComboBoxModel model;
    model.setItems(items);
    model.selectIndex(selected);
    return model;
}

TEST(ComboBoxRows, AlignWithTheScrollUnitAtEveryScale) {
    const std::tuple<int, int, int> cases[] = {{6, 18, 18}, {8, 23, 24}, {9, 27, 27}, {7, 22, 28}, {12, 36, 36}};
    for (const auto& [unit, wanted, rowHeight] : cases) {
        const ComboBoxRows rows(unit, wanted);
        EXPECT_EQ(rows.getRowHeight(), rowHeight);
        EXPECT_EQ(rows.getHeight(17), 17 * rowHeight + 2);
        for (const int index : {0, 1, 16}) {
            EXPECT_EQ(rows.findRow(rows.getTop(index), 17), index);
            EXPECT_EQ(rows.findRow(rows.getTop(index + 1) - 1, 17), index);
        }
        EXPECT_EQ(rows.findRow(0, 17), 0) << "the margin";
        EXPECT_FALSE(rows.findRow(-1, 17) || rows.findRow(rows.getHeight(17), 17) || rows.findRow(5, 0));
    }
    EXPECT_EQ(ComboBoxRows(6, 18).getHeight(MAX), MAX);
}

TEST(ComboBoxRows, ScrollNoFurtherThanIntoView) {
    const ComboBoxRows rows(6, 18); // three units a row
    using Case = std::tuple<int, int, int, Optional<int>>;
    const Case cases[] = {{0, 0, 308, {}},
                          {16, 0, 308, {}},
                          {17, 0, 308, 3},
                          {19, 0, 308, 9},
                          {2, 9, 308, 6},
                          {999'999, 0, 308, 2'999'949},
                          {999'999, 2'999'949, 308, {}},
                          {0, 2'999'949, 308, 0},
                          {10, 9, 308, {}},
                          {3, 9, 308, {}},
                          {3, 10, 308, {}},
                          {3, 11, 308, 9},
                          {5, 0, 60, 8}};
    for (const auto& [index, position, height, expected] : cases) {
        EXPECT_EQ(rows.scrollIntoView(index, position, height), expected) << index << " at " << position;
    }
}

TEST(ComboBoxPlace, IsUnderTheBoxOrElseWhereThereIsRoom) {
    const ComboBoxRows rows(6, 18);
    using Case = std::tuple<const char*, Bucket, int, int, Pixel>;
    const Case cases[] = {{"three rows", {{100, 100}, {250, 120}}, 3, 3, {100, 120}},
                          {"many rows", {{100, 100}, {250, 120}}, 1'000'000, 17, {100, 120}},
                          {"to the last pixel", {{100, 370}, {250, 390}}, 20, 17, {100, 390}},
                          {"above", {{100, 371}, {250, 391}}, 20, 17, {100, 61}},
                          {"moved right", {{-30, 100}, {120, 120}}, 3, 3, {0, 120}},
                          {"moved left", {{900, 100}, {1050, 120}}, 3, 3, {850, 120}},
                          {"a high box", {{100, 200}, {250, 600}}, 20, 10, {100, 16}},
                          {"a higher box", {{100, 10}, {250, 690}}, 20, 1, {100, 690}}};
    for (const auto& [name, box, count, shown, place] : cases) {
        const ComboBoxPlace found = placeComboBoxList(box, rows, count, 1, {{0, 0}, {1000, 700}});
        EXPECT_EQ(found.rows, shown) << name;
        EXPECT_EQ(found.window, (Bucket{place, place + Pixel{150, shown * 18 + 4}})) << name;
    }
}

TEST(ComboBoxSelection, MovesAndStopsAtTheEnds) {
    using enum ComboBoxMove;
    using Case = std::tuple<int, ComboBoxMove, Optional<int>>;
    const Case cases[] = {{1, PREVIOUS, 0}, {0, PREVIOUS, 0},   {1, NEXT, 2},  {2, NEXT, 2}, {2, FIRST, 0},
                          {0, LAST, 2},     {-1, PREVIOUS, {}}, {-1, NEXT, 0}, {7, LAST, 2}};
    for (const auto& [from, move, to] : cases) {
        ComboBoxModel model = makeModel({"a", "b", "c"}, from);
        const Optional<int> before = model.getSelected();
        EXPECT_EQ(model.move(move), before != to) << from;
        EXPECT_EQ(model.getSelected(), to) << from;
        EXPECT_FALSE(makeModel({}, 0).move(move));
    }
    ComboBoxModel model = makeModel({"a", "b", "c"}, 0);
    model.highlight(2);
    EXPECT_TRUE(model.moveFromHighlighted(NEXT)) << "to the highlighted one, which is the last";
    EXPECT_FALSE(model.moveFromHighlighted(NEXT));
    EXPECT_TRUE(model.moveFromHighlighted(PREVIOUS));
    EXPECT_EQ(model.getSelected(), 1);
}

TEST(ComboBoxSelection, IsNeverWhereNoRowIs) {
    ComboBoxModel model = makeModel({"a", "b", "c"}, 0); // with the ids 0, 1, 0
    EXPECT_TRUE(model.selectId(0));
    EXPECT_EQ(model.getSelected(), 2) << "the last of them";
    EXPECT_FALSE(model.selectId(6));
    EXPECT_EQ(model.getSelectedItem(), nullptr);
    for (const int index : {-1, 3, MAX, std::numeric_limits<int>::min()}) {
        model.selectIndex(1);
        model.selectIndex(index);
        model.highlight(index);
        EXPECT_FALSE(model.getSelected() || model.getHighlighted()) << index;
    }
    model.selectIndex(1);
    model.highlight(2);
    model.setItems(Array<ComboBoxItem>(2));
    EXPECT_EQ(model.getSelected(), 1);
    EXPECT_FALSE(model.getHighlighted());
    model.setItems({});
    EXPECT_FALSE(model.getSelected());
}

TEST(ComboBoxTyping, GoesToTheNextRowThatBeginsWithIt) {
    ComboBoxModel model = makeModel({"Linear", "Logarithmic", "linear light", "Cubic"}, -1);
    // A pause begins anew; the same again goes on, round the end; more of a word stays where it can.
    const std::tuple<wchar_t, double, int> cases[] = {{L'l', 5000, 0}, {L'l', 10, 1}, {L'l', 10, 2}, {L'l', 10, 0},
                                                      {L'L', 5000, 1}, {L'i', 10, 2}, {L'n', 10, 2}, {L'x', 10, 2},
                                                      {L'c', 1001, 3}, {L'c', 10, 3}};
    for (const auto& [character, pause, expected] : cases) {
        model.type(character, pause);
        EXPECT_EQ(model.getSelected(), expected) << static_cast<char>(character);
    }
    EXPECT_FALSE(makeModel({}, 0).type(L'a', 0));
}

} // namespace
} // namespace Ostrel::Wx
