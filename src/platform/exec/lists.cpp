#include "platform/exec/lists.h"

#include <cstring>

// The tail sentinel is the only node of a list whose successor is null, and
// the head sentinel the only one whose predecessor is null.

Node* List::First() const
{
    return Empty() ? nullptr : lh_HeadNode.ln_Succ;
}

Node* List::Last() const
{
    return Empty() ? nullptr : lh_TailNode.ln_Pred;
}

bool List::Empty() const
{
    return lh_HeadNode.ln_Succ == &lh_TailNode;
}

void NewList(List* list)
{
    list->lh_HeadNode = Node{};
    list->lh_TailNode = Node{};
    list->lh_HeadNode.ln_Succ = &list->lh_TailNode;
    list->lh_TailNode.ln_Pred = &list->lh_HeadNode;
}

static void InsertAfter(Node* pred, Node* node)
{
    Node* succ = pred->ln_Succ;
    node->ln_Pred = pred;
    node->ln_Succ = succ;
    pred->ln_Succ = node;
    succ->ln_Pred = node;
}

void AddHead(List* list, Node* node)
{
    InsertAfter(&list->lh_HeadNode, node);
}

void AddTail(List* list, Node* node)
{
    InsertAfter(list->lh_TailNode.ln_Pred, node);
}

void Enqueue(List* list, Node* node)
{
    Node* pred = list->lh_TailNode.ln_Pred;
    while (pred != &list->lh_HeadNode && pred->ln_Pri < node->ln_Pri)
        pred = pred->ln_Pred;
    InsertAfter(pred, node);
}

void Remove(Node* node)
{
    node->ln_Pred->ln_Succ = node->ln_Succ;
    node->ln_Succ->ln_Pred = node->ln_Pred;
    node->ln_Succ = nullptr;
    node->ln_Pred = nullptr;
}

Node* RemHead(List* list)
{
    Node* first = list->First();
    if (first)
        Remove(first);
    return first;
}

Node* FindName(List* list, const char* name)
{
    if (!name)
        return nullptr;
    for (Node* node = list->First(); node; node = NextNode(node)) {
        if (node->ln_Name && std::strcmp(node->ln_Name, name) == 0)
            return node;
    }
    return nullptr;
}

Node* NextNode(const Node* node)
{
    Node* succ = node->ln_Succ;
    return (succ && succ->ln_Succ) ? succ : nullptr;
}
