#pragma once
// Intrusive doubly linked lists, as the editor keeps its texts, key map and
// toolbars: a record that sits in a list begins with its Node.
//
// A List is empty when lh_Head points at the tail sentinel. Nodes are never
// owned by the list; Remove only unlinks.

struct Node {
    Node* ln_Succ = nullptr;
    Node* ln_Pred = nullptr;
    const char* ln_Name = nullptr;
    int ln_Pri = 0;
};

struct List {
    // Head and tail sentinels; use NewList before first use.
    Node lh_HeadNode;
    Node lh_TailNode;

    Node* First() const;   // null when empty
    Node* Last() const;    // null when empty
    bool Empty() const;
};

void NewList(List* list);
void AddHead(List* list, Node* node);
void AddTail(List* list, Node* node);
void Remove(Node* node);
Node* RemHead(List* list);   // null when empty
Node* FindName(List* list, const char* name);   // exact, case matters
// The node after `node`, or null at the end of its list.
Node* NextNode(const Node* node);
