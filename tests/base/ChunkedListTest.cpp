// Compares the chunked list of children and rows with a `std::vector`.
#include "base/ChunkedList.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>

namespace tabulon {
namespace {

struct Thing {
    void* chunk = nullptr;
    std::uint16_t place = 0;
};
struct ThingLink {
    static void*& chunk(Thing& thing) { return thing.chunk; }
    static std::uint16_t& place(Thing& thing) { return thing.place; }
};
using List = ChunkedList<Thing, ThingLink>;

void expectSame(const List& list, const std::vector<Thing*>& model) {
    ASSERT_EQ(list.size(), model.size());
    ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end()));
    EXPECT_EQ(list.front(), model.empty() ? nullptr : model.front());
    EXPECT_EQ(list.back(), model.empty() ? nullptr : model.back());
    for (std::size_t i = 0; i < model.size(); i += 1 + model.size() / 97) {
        ASSERT_EQ(list.at(i), model[i]);
        ASSERT_EQ(list.indexOf(*model[i]), i);
        ASSERT_EQ(list.next(*model[i]), i + 1 < model.size() ? model[i + 1] : nullptr);
    }
}

TEST(ChunkedList, randomEditsMatchAVector) {
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        std::deque<Thing> things;
        List list;
        std::vector<Thing*> model;
        const auto fresh = [&] { return &things.emplace_back(); };
        for (int step = 0; step < 3000; ++step) {
            const std::size_t at = model.empty() ? 0 : random() % (model.size() + 1);
            switch (random() % 8) {
            case 0:
            case 1:
            case 2: {
                Thing* thing = fresh();
                list.insert(at, *thing);
                model.insert(model.begin() + static_cast<std::ptrdiff_t>(at), thing);
                break;
            }
            case 3: {
                Thing* thing = fresh();
                list.append(*thing);
                model.push_back(thing);
                break;
            }
            case 4:
            case 5:
                if (at < model.size()) {
                    list.eraseAt(at);
                    EXPECT_FALSE(list.contains(*model[at]));
                    model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
                }
                break;
            case 6: {
                std::vector<Thing*> range(random() % 50 == 0 ? random() % 3000 : random() % 40);
                for (Thing*& thing : range)
                    thing = fresh();
                list.insertRange(at, range);
                model.insert(model.begin() + static_cast<std::ptrdiff_t>(at), range.begin(), range.end());
                break;
            }
            default: {
                const std::size_t count =
                    std::min(model.size() - std::min(at, model.size()),
                             std::size_t{random() % 60 == 0 ? random() % 2000 : random() % 30});
                list.eraseRange(at, count);
                model.erase(model.begin() + static_cast<std::ptrdiff_t>(at),
                            model.begin() + static_cast<std::ptrdiff_t>(at + count));
                break;
            }
            }
            if (step % 100 == 0)
                expectSame(list, model);
        }
        expectSame(list, model);
        list.clear();
        EXPECT_TRUE(list.empty());
        for (const Thing& thing : things)
            EXPECT_EQ(thing.chunk, nullptr);
    }
}

TEST(ChunkedList, anItemInTwoListsIsFoundInBoth) {
    std::deque<Thing> things(3000);
    List first;
    List second;
    for (Thing& thing : things)
        first.append(thing);
    for (std::size_t i = 0; i < things.size(); i += 3)
        second.append(things[i]);
    for (std::size_t i = 0; i < things.size(); i += 300) {
        EXPECT_EQ(first.indexOf(things[i]), i);
        EXPECT_EQ(second.indexOf(things[i]), i / 3);
    }
    second.clear();
    EXPECT_EQ(first.indexOf(things[2997]), 2997u);
    first.eraseAt(0);
    EXPECT_EQ(first.indexOf(things[2997]), 2996u);
}

TEST(ChunkedList, anItemThatStandsTwiceGivesItsFirstPlace) {
    std::deque<Thing> things(3);
    List list;
    for (const int i : {0, 1, 0, 2})
        list.append(things[static_cast<std::size_t>(i)]);
    EXPECT_EQ(list.indexOf(things[0]), 0u);
    EXPECT_EQ(list.next(things[0]), &things[1]);
    list.eraseAt(0);
    EXPECT_EQ(list.indexOf(things[0]), 1u);
}

TEST(ChunkedList, anItemCanLeaveItsListByItself) {
    std::deque<Thing> things(1000);
    List list;
    for (Thing& thing : things)
        list.append(thing);
    List::eraseFromItsList(things[500]);
    EXPECT_EQ(list.size(), 999u);
    EXPECT_FALSE(list.contains(things[500]));
    EXPECT_EQ(list.indexOf(things[501]), 500u);
    List::eraseFromItsList(things[500]);
    EXPECT_EQ(list.size(), 999u);
}

} // namespace
} // namespace tabulon
