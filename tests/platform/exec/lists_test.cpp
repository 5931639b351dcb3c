#include "platform/exec/lists.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Names(List& list)
{
    std::string names;
    for (Node* node = list.First(); node; node = NextNode(node))
        names += node->ln_Name;
    return names;
}

TEST(Lists, AddRemoveFindAndWalk)
{
    List list;
    NewList(&list);
    EXPECT_EQ(RemHead(&list), nullptr);
    EXPECT_EQ(list.Last(), nullptr);

    Node a{.ln_Name = "a"}, b{.ln_Name = "b"}, c{.ln_Name = "c"}, unnamed;
    AddTail(&list, &b);
    AddHead(&list, &unnamed);
    AddHead(&list, &a);
    AddTail(&list, &c);
    EXPECT_EQ(FindName(&list, "c"), &c);
    EXPECT_EQ(FindName(&list, "C"), nullptr);
    Remove(&unnamed);
    EXPECT_EQ(Names(list), "abc");
    EXPECT_EQ(list.Last(), &c);
    Remove(&b);
    EXPECT_EQ(Names(list), "ac");
    EXPECT_EQ(RemHead(&list), &a);
    EXPECT_EQ(RemHead(&list), &c);
    EXPECT_TRUE(list.Empty());
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
