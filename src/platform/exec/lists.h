#pragma once
// Intrusive doubly linked lists, as the editor keeps its texts, key map and
// toolbars: a record that sits in a list begins with its Node.
//
// A List is empty when lh_Head points at the tail sentinel. Nodes are never
// owned by the list; Remove only unlinks, and leaves the node's links null
// so that a node can tell whether it sits in a list.

#include <cstdint>

// Node types, as messages carry them: a message put at a port is
// NT_MESSAGE, one sent back by ReplyMsg is NT_REPLYMSG.
constexpr uint8_t NT_UNKNOWN = 0;
constexpr uint8_t NT_TASK = 1;
constexpr uint8_t NT_MSGPORT = 4;
constexpr uint8_t NT_MESSAGE = 5;
constexpr uint8_t NT_FREEMSG = 6;
constexpr uint8_t NT_REPLYMSG = 7;

struct Node {
    Node* ln_Succ = nullptr;
    Node* ln_Pred = nullptr;
    const char* ln_Name = nullptr;
    int ln_Pri = 0;
    uint8_t ln_Type = NT_UNKNOWN;
};

struct List {
    // Head and tail sentinels; use NewList before first use. A List points
    // into itself, so it is never copied or moved once initialised.
    Node lh_HeadNode;
    Node lh_TailNode;

    Node* First() const;   // null when empty
    Node* Last() const;    // null when empty
    bool Empty() const;
};

void NewList(List* list);
void AddHead(List* list, Node* node);
void AddTail(List* list, Node* node);
// By ln_Pri, higher first; after the nodes of equal priority.
void Enqueue(List* list, Node* node);
void Remove(Node* node);
Node* RemHead(List* list);   // null when empty
// Exact, case matters; nodes without a name never match. Null for a null name.
Node* FindName(List* list, const char* name);
// The node after `node`, or null at the end of its list.
Node* NextNode(const Node* node);
