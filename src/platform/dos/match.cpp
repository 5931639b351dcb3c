#include "platform/dos/match.h"

#include "platform/dos/pattern_tokens.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

enum class Kind : uint8_t { Char, Any, Class, Empty, Repeat, Not, Alt, Cons, Nil };

// The pattern as a tree. A sequence is a chain of Cons nodes (head item,
// tail chain) ending in Nil; a group is an Alt over such chains.
struct Node {
    explicit Node(Kind k) : kind(k) {}
    Kind kind;
    uint8_t c = 0;                // Char
    bool negated = false;         // Class
    int a = -1;                   // Repeat, Not: the item; Cons: the head
    int b = -1;                   // Cons: the tail
    size_t minLength = 0;         // the fewest characters the node can match
    std::vector<int> branches;    // Alt
    std::vector<std::pair<uint8_t, uint8_t>> ranges; // Class
};

// Builds the tree from tokens, checking them as it goes, since a caller may
// hand in any bytes.
class TreeBuilder {
public:
    explicit TreeBuilder(const uint8_t* tokens) : p_(tokens) {}

    // The root chain, or -1 when the tokens are malformed.
    int Build() {
        int root = Chain(0);
        return root >= 0 && *p_ == PT_END ? root : -1;
    }

    std::vector<Node> nodes;

private:
    const uint8_t* p_;

    int composites_ = 0;

    int Add(Node node) {
        if (node.kind == Kind::Repeat || node.kind == Kind::Not || node.kind == Kind::Alt ||
            node.kind == Kind::Empty) {
            if (++composites_ > PatternMaxComposites) return -1;
        }
        nodes.push_back(std::move(node));
        return static_cast<int>(nodes.size()) - 1;
    }

    // Items up to PT_END, PT_ALT or PT_CLOSE, which are left in place.
    int Chain(int depth) {
        std::vector<int> items;
        while (*p_ != PT_END && *p_ != PT_ALT && *p_ != PT_CLOSE) {
            int item = Item(depth);
            if (item < 0) return -1;
            items.push_back(item);
        }
        int chain = Add(Node(Kind::Nil));
        for (size_t k = items.size(); k-- > 0;) {
            Node cons{Kind::Cons};
            cons.a = items[k];
            cons.b = chain;
            cons.minLength = nodes[items[k]].minLength + nodes[chain].minLength;
            chain = Add(std::move(cons));
        }
        return chain;
    }

    int Item(int depth) {
        if (depth > PatternMaxDepth) return -1;
        switch (*p_++) {
        case PT_CHAR: {
            if (*p_ == 0) return -1;
            Node node{Kind::Char};
            node.c = *p_++;
            node.minLength = 1;
            return Add(std::move(node));
        }
        case PT_ANY: {
            Node node{Kind::Any};
            node.minLength = 1;
            return Add(std::move(node));
        }
        case PT_EMPTY:
            return Add(Node(Kind::Empty));
        case PT_REPEAT:
        case PT_NOT: {
            Node node{p_[-1] == PT_REPEAT ? Kind::Repeat : Kind::Not};
            node.a = Item(depth + 1);
            if (node.a < 0) return -1;
            return Add(std::move(node));
        }
        case PT_OPEN: {
            Node node{Kind::Alt};
            for (;;) {
                int branch = Chain(depth + 1);
                if (branch < 0) return -1;
                node.branches.push_back(branch);
                uint8_t tag = *p_++;
                if (tag == PT_CLOSE) break;
                if (tag != PT_ALT) return -1;
            }
            node.minLength = nodes[node.branches[0]].minLength;
            for (int branch : node.branches)
                node.minLength = std::min(node.minLength, nodes[branch].minLength);
            return Add(std::move(node));
        }
        case PT_CLASS: {
            if (p_[0] > 1) return -1;
            Node node{Kind::Class};
            node.negated = *p_++ == 1;
            unsigned count = (static_cast<unsigned>(p_[0]) << 8) | p_[1];
            p_ += 2;
            for (unsigned k = 0; k < count; ++k) {
                if (p_[0] == 0 || p_[1] == 0) return -1;
                node.ranges.emplace_back(p_[0], p_[1]);
                p_ += 2;
            }
            node.minLength = 1;
            return Add(std::move(node));
        }
        default:
            return -1;
        }
    }
};

// Answers "does node n match exactly s[i, j)?", remembering every answer
// about a composite node so that no question is worked out twice.
class Matcher {
public:
    Matcher(const std::vector<Node>& nodes, const uint8_t* s, bool noCase)
        : nodes_(nodes), s_(s), noCase_(noCase) {}

    bool Match(int n, size_t i, size_t j) {
        const Node& node = nodes_[n];
        if (j - i < node.minLength) return false;
        switch (node.kind) {
        case Kind::Nil:
        case Kind::Empty:
            return i == j;
        case Kind::Char:
        case Kind::Any:
        case Kind::Class:
            return j == i + 1 && Single(node, s_[i]);
        default:
            break;
        }
        uint64_t key = Key(n, i, j);
        auto known = memo_.find(key);
        if (known != memo_.end()) return known->second;
        bool result = Compute(node, i, j);
        memo_[key] = result;
        return result;
    }

private:
    const std::vector<Node>& nodes_;
    const uint8_t* s_;
    bool noCase_;
    std::unordered_map<uint64_t, bool> memo_;

    static uint64_t Key(int n, size_t i, size_t j) {
        return (static_cast<uint64_t>(n) << 42) | (static_cast<uint64_t>(i) << 21) | j;
    }

    static bool IsSingle(const Node& node) {
        return node.kind == Kind::Char || node.kind == Kind::Any || node.kind == Kind::Class;
    }

    bool InRanges(const Node& node, uint8_t c) const {
        for (const auto& [lo, hi] : node.ranges)
            if (c >= lo && c <= hi) return true;
        return false;
    }

    bool Single(const Node& node, uint8_t c) const {
        switch (node.kind) {
        case Kind::Char:
            return noCase_ ? PatternUpper(node.c) == PatternUpper(c) : node.c == c;
        case Kind::Any:
            return true;
        case Kind::Class: {
            bool in = InRanges(node, c) ||
                      (noCase_ && (InRanges(node, PatternUpper(c)) || InRanges(node, PatternLower(c))));
            return in != node.negated;
        }
        default:
            return false;
        }
    }

    bool Compute(const Node& node, size_t i, size_t j) {
        switch (node.kind) {
        case Kind::Not:
            return !Match(node.a, i, j);
        case Kind::Alt:
            for (int branch : node.branches)
                if (Match(branch, i, j)) return true;
            return false;
        case Kind::Repeat:
            return i == j || Reachable(node.a, i, j)[j - i];
        case Kind::Cons:
            return Sequence(node, i, j);
        default:
            return false;
        }
    }

    // Positions i + k reachable from i by whole, non-empty matches of item
    // n, walked breadth first so that no recursion grows with the string.
    std::vector<char> Reachable(int n, size_t i, size_t j) {
        std::vector<char> seen(j - i + 1, 0);
        std::vector<size_t> pending{i};
        seen[0] = 1;
        while (!pending.empty()) {
            size_t p = pending.back();
            pending.pop_back();
            for (size_t q = p + 1; q <= j; ++q)
                if (!seen[q - i] && Match(n, p, q)) {
                    seen[q - i] = 1;
                    pending.push_back(q);
                }
        }
        return seen;
    }

    bool Sequence(const Node& first, size_t i, size_t j) {
        // Leading one-character and empty items are taken in a loop, so that
        // a long run of plain characters costs no recursion.
        const Node* cons = &first;
        for (;;) {
            if (cons->kind == Kind::Nil) return i == j;
            if (j - i < cons->minLength) return false;
            const Node& head = nodes_[cons->a];
            if (IsSingle(head)) {
                if (!Single(head, s_[i])) return false;
                ++i;
            } else if (head.kind != Kind::Empty) {
                break;
            }
            cons = &nodes_[cons->b];
        }
        const Node& head = nodes_[cons->a];
        size_t last = j - nodes_[cons->b].minLength; // the tail needs that much
        if (head.kind == Kind::Repeat && IsSingle(nodes_[head.a])) return RepeatSingle(*cons, i, j);
        if (head.kind == Kind::Repeat) {
            std::vector<char> reach = Reachable(head.a, i, last);
            for (size_t k = i; k <= last; ++k)
                if (reach[k - i] && Match(cons->b, k, j)) return true;
            return false;
        }
        for (size_t k = i; k <= last; ++k)
            if (Match(cons->a, i, k) && Match(cons->b, k, j)) return true;
        return false;
    }

    // A chain "#x rest" with a one-character x: it matches from i when rest
    // matches from i, or x matches s[i] and the chain matches from i + 1.
    // Walked forward to the first position already answered and then
    // answered backward, so each position costs one step and no recursion.
    bool RepeatSingle(const Node& cons, size_t i, size_t j) {
        const Node& item = nodes_[nodes_[cons.a].a];
        int self = static_cast<int>(&cons - nodes_.data());
        size_t k = i + 1;
        bool result = false;
        while (k <= j && Single(item, s_[k - 1])) {
            auto known = memo_.find(Key(self, k, j));
            if (known != memo_.end()) {
                result = known->second;
                break;
            }
            ++k;
        }
        if (k > j || !Single(item, s_[k - 1])) {
            // The run of x ends at k - 1: from there only the tail can match.
            --k;
            result = Match(cons.b, k, j);
            memo_[Key(self, k, j)] = result;
        }
        while (k-- > i + 1) {
            result = result || Match(cons.b, k, j);
            memo_[Key(self, k, j)] = result;
        }
        return result || Match(cons.b, i, j);
    }
};

bool MatchTokens(const char* tokens, const char* string, bool noCase) {
    size_t length = std::strlen(string);
    if (length >= (size_t{1} << 20)) return false;
    TreeBuilder builder(reinterpret_cast<const uint8_t*>(tokens));
    int root = builder.Build();
    if (root < 0) return false;
    Matcher matcher(builder.nodes, reinterpret_cast<const uint8_t*>(string), noCase);
    return matcher.Match(root, 0, length);
}

} // namespace

bool MatchPattern(const char* tokens, const char* string) {
    return MatchTokens(tokens, string, false);
}

bool MatchPatternNoCase(const char* tokens, const char* string) {
    return MatchTokens(tokens, string, true);
}

bool PatternPlainName(const char* tokens, char* name, long size) {
    const uint8_t* p = reinterpret_cast<const uint8_t*>(tokens);
    long length = 0;
    for (; *p == PT_CHAR && p[1] != 0; p += 2) {
        if (length + 1 >= size) return false;
        name[length++] = static_cast<char>(p[1]);
    }
    if (*p != PT_END || size <= 0) return false;
    name[length] = '\0';
    return true;
}
