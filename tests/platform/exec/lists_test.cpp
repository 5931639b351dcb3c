#include "platform/exec/lists.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The names of the list's nodes, first to last.
std::string Names(List& list)
{
    std::string names;
    for (Node* node = list.First(); node; node = NextNode(node))
        names += node->ln_Name;
    return names;
}

TEST(Lists, AddRemoveAndWalk)
{
    List list;
    NewList(&list);
    EXPECT_TRUE(list.Empty());
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.Last(), nullptr);
    EXPECT_EQ(RemHead(&list), nullptr);

    Node a{.ln_Name = "a"}, b{.ln_Name = "b"}, c{.ln_Name = "c"};
    AddTail(&list, &b);
    AddHead(&list, &a);
    AddTail(&list, &c);
    EXPECT_EQ(Names(list), "abc");
    EXPECT_EQ(list.Last(), &c);

    Remove(&b);
    EXPECT_EQ(b.ln_Succ, nullptr);
    EXPECT_EQ(Names(list), "ac");
    EXPECT_EQ(RemHead(&list), &a);
    EXPECT_EQ(RemHead(&list), &c);
    EXPECT_TRUE(list.Empty());
}

TEST(Lists, FindNameIsExactAndSkipsUnnamed)
{
    List list;
    NewList(&list);
    Node unnamed, lower{.ln_Name = "tavrel.1"}, upper{.ln_Name = "Tavrel.1"};
    AddTail(&list, &unnamed);
    AddTail(&list, &lower);
    AddTail(&list, &upper);
    EXPECT_EQ(FindName(&list, "Tavrel.1"), &upper);
    EXPECT_EQ(FindName(&list, "Tavrel"), nullptr);
    EXPECT_EQ(FindName(&list, nullptr), nullptr);
}

TEST(Lists, EnqueueKeepsPriorityThenArrival)
{
    List list;
    NewList(&list);
    Node nodes[] = {{.ln_Name = "a", .ln_Pri = 0}, {.ln_Name = "b", .ln_Pri = 5},
                    {.ln_Name = "c", .ln_Pri = 0}, {.ln_Name = "d", .ln_Pri = -3},
                    {.ln_Name = "e", .ln_Pri = 5}};
    for (Node& node : nodes)
        Enqueue(&list, &node);
    EXPECT_EQ(Names(list), "beacd");
}

} // namespace
