// SPDX-License-Identifier: MIT
#include "types/QPtrList.h"
#include "types/QValueList.h"

#include <memory>
#include <vector>

namespace q_ptr_list_test {

namespace {

struct Counted
{
    explicit Counted(int& counter) : alive(counter) { ++alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }
    int& alive;
};

struct Fixture : testing::Test
{
    Counted* fresh() { return new Counted(alive); }
    int alive = 0;
};

using QPtrListTest = Fixture;

} // namespace

TEST_F(QPtrListTest, RefersToItsItemsUnlessToldToOwn)
{
    const std::unique_ptr<Counted> item(fresh());
    {
        QPtrList<Counted> list;
        EXPECT_FALSE(list.autoDelete());
        list.append(item.get());
        EXPECT_TRUE(list.remove(0));
        list.append(item.get());
        list.clear();
        list.append(item.get());
    }
    EXPECT_EQ(alive, 1);
}

TEST_F(QPtrListTest, DeletesWhatItOwns)
{
    {
        QPtrList<Counted> list;
        list.setAutoDelete(true);
        EXPECT_TRUE(list.autoDelete());
        for (int i = 0; i < 4; ++i)
            list.append(fresh());
        EXPECT_TRUE(list.remove(1));
        EXPECT_EQ(alive, 3);
        delete list.take(0);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(QPtrListTest, KeepsTheOrder)
{
    QPtrList<Counted> list;
    list.setAutoDelete(true);
    Counted* b = fresh();
    Counted* c = fresh();
    Counted* a = fresh();
    Counted* d = fresh();
    list.append(b);
    EXPECT_TRUE(list.insert(1, c));
    list.prepend(a);
    EXPECT_TRUE(list.insert(list.count(), d));
    EXPECT_EQ(std::vector<Counted*>(list.begin(), list.end()), (std::vector<Counted*>{a, b, c, d}));
    EXPECT_EQ(list.first(), a);
    EXPECT_EQ(list.last(), d);
    EXPECT_EQ(list.at(2), c);
    EXPECT_EQ(list.count(), 4);
    EXPECT_FALSE(list.isEmpty());
}

TEST_F(QPtrListTest, RefusesWhatIsOutOfRange)
{
    QPtrList<Counted> list;
    EXPECT_EQ(list.at(0), nullptr);
    EXPECT_EQ(list.at(-1), nullptr);
    EXPECT_EQ(list.first(), nullptr);
    EXPECT_EQ(list.last(), nullptr);
    EXPECT_EQ(list.take(0), nullptr);
    EXPECT_FALSE(list.remove(0));
    EXPECT_FALSE(list.remove(-1));
    EXPECT_FALSE(list.insert(0, nullptr));
    const std::unique_ptr<Counted> item(fresh());
    EXPECT_FALSE(list.insert(1, item.get()));
    EXPECT_FALSE(list.insert(-1, item.get()));
    EXPECT_TRUE(list.isEmpty());
}

// One list with its items in itself, one with an array of its own.
TEST_F(QPtrListTest, SwapsItemsAndWhoOwnsThem)
{
    for (const int longer : {0, 1, 2, 9}) {
        QPtrList<Counted> owning;
        owning.setAutoDelete(true);
        Counted* const first = fresh();
        owning.append(first);
        std::vector<std::unique_ptr<Counted>> others;
        QPtrList<Counted> referring;
        for (int i = 0; i < longer; ++i) {
            others.emplace_back(fresh());
            referring.append(others.back().get());
        }
        owning.swap(referring);
        EXPECT_FALSE(owning.autoDelete());
        EXPECT_TRUE(referring.autoDelete());
        EXPECT_EQ(owning.count(), longer);
        EXPECT_EQ(owning.last(), longer == 0 ? nullptr : others.back().get());
        EXPECT_EQ(referring.first(), first);
        referring.clear();
        EXPECT_EQ(alive, longer);
    }
    EXPECT_EQ(alive, 0);
}

TEST(QValueList, IsQtsList)
{
    const QValueList<int> list{1, 2};
    const QList<int>& same = list;
    EXPECT_EQ(same.at(1), 2);
}

} // namespace q_ptr_list_test
