#include "jetfile/query_joins.h"

#include <algorithm>
#include <memory>

#include "jetfile/bytes.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

constexpr std::size_t kMaxInputs = 64;

// A node of the join tree: an input, or the join of two nodes.
struct Node {
    const QueryInput* input = nullptr;
    std::unique_ptr<Node> left;
    std::unique_ptr<Node> right;
    std::int64_t kind = 0;
    std::vector<std::string> conditions;

    bool Holds(const std::string& name) const {
        return input != nullptr ? SameName(input->name, name) : left->Holds(name) || right->Holds(name);
    }
};

const char* JoinWords(std::int64_t kind) {
    switch (kind) {
        case 1:
            return " INNER JOIN ";
        case 2:
            return " LEFT JOIN ";
        case 3:
            return " RIGHT JOIN ";
        default:
            ThrowDamaged("a query with a join of an unknown kind");
    }
}

std::string ConditionText(const std::vector<std::string>& conditions) {
    if (conditions.size() == 1) return conditions.front();
    std::string text;
    for (const std::string& condition : conditions)
        text += (text.empty() ? "(" : " AND (") + condition + ")";
    return text;
}

std::string Text(const Node& node);

std::string OperandText(const Node& node) {
    return node.input != nullptr ? node.input->text : "(" + Text(node) + ")";
}

std::string Text(const Node& node) {
    if (node.input != nullptr) return node.input->text;
    return OperandText(*node.left) + JoinWords(node.kind) + OperandText(*node.right) + " ON " +
           ConditionText(node.conditions);
}

// The groups of inputs that joins have tied together so far.
class JoinGroups {
  public:
    explicit JoinGroups(const std::vector<QueryInput>& inputs) {
        for (const QueryInput& input : inputs) {
            groups_.push_back(std::make_unique<Node>());
            groups_.back()->input = &input;
        }
    }

    void Add(const QueryJoin& join) {
        const auto left = Find(join.left);
        const auto right = Find(join.right);
        if (left == right) {
            AddCondition(**left, join);
            return;
        }
        auto node = std::make_unique<Node>();
        node->left = std::move(*left);
        node->right = std::move(*right);
        node->kind = join.kind;
        node->conditions.push_back(join.condition);
        *left = std::move(node);
        groups_.erase(right);
    }

    std::string Text() const {
        std::string text;
        for (const auto& group : groups_)
            text += (text.empty() ? "" : ", ") + jetfile::Text(*group);
        return text;
    }

  private:
    using Groups = std::vector<std::unique_ptr<Node>>;

    Groups::iterator Find(const std::string& name) {
        const auto found = std::find_if(groups_.begin(), groups_.end(),
                                        [&](const auto& group) { return group->Holds(name); });
        if (found == groups_.end()) ThrowDamaged("a query that joins a table which it does not name");
        return found;
    }

    // One more condition between inputs that are tied already belongs to the join that ties them.
    static void AddCondition(Node& top, const QueryJoin& join) {
        Node* node = &top;
        while (node->input == nullptr) {
            const bool bothLeft = node->left->Holds(join.left) && node->left->Holds(join.right);
            const bool bothRight = node->right->Holds(join.left) && node->right->Holds(join.right);
            if (!bothLeft && !bothRight) break;
            node = bothLeft ? node->left.get() : node->right.get();
        }
        if (node->input != nullptr || node->kind != join.kind)
            ThrowDamaged("a query with contradicting joins");
        node->conditions.push_back(join.condition);
    }

    Groups groups_;
};

}  // namespace

std::string FromText(const std::vector<QueryInput>& inputs, const std::vector<QueryJoin>& joins) {
    if (inputs.size() > kMaxInputs || joins.size() > kMaxInputs * kMaxInputs)
        ThrowDamaged("a query with too many tables");
    JoinGroups groups(inputs);
    for (const QueryJoin& join : joins)
        groups.Add(join);
    return groups.Text();
}

std::string BracketedName(const std::string& name) {
    return name.starts_with('[') ? name : "[" + name + "]";
}

}  // namespace jetfile
