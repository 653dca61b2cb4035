// SPDX-License-Identifier: MIT
#include "adapters/opcua/addressspace.h"

#include "adapters/opcua/browse.h"
#include "adapters/opcua/status.h"

#include <open62541/nodeids.h>

#include <unordered_set>

namespace velt::opcua {
namespace {

/// A node whose children come next.
struct Open {
    std::size_t branch;
    NodeId id;
    std::string path;  ///< with a "." at its end, or empty
    bool isVariable;
};

struct Seen {
    std::unordered_set<NodeId, NodeId::Hash> nodes;
    std::unordered_set<std::string> names;
};

template <typename Number>
std::string leftOut(const std::string& branch, const char* where, Number bound, const char* what) {
    return branch + ": elenco incompleto, " + where + " " + std::to_string(bound) + " " + what +
           " non si cerca";
}

}  // namespace

std::vector<Branch> readBranches(UA_Client& client, const OperationLimits& limits,
                                 const NodeId& parent, const std::stop_token& stop) {
    std::size_t limit = Bounds().nodes;
    const Children children =
        browseChildren(client, limits, {Parent{parent, false}}, limit, stop).front();
    check(children.status);
    const UA_NodeId objects = UA_NODEID_NUMERIC(0, UA_NS0ID_OBJECTSFOLDER);
    const bool isRoot = UA_NodeId_equal(parent.get(), &objects);
    std::vector<Branch> branches;
    for (const Child& child : children.nodes)
        if (!child.isVariable && !(isRoot && child.id->namespaceIndex == 0))
            branches.push_back({child.name, child.id});
    return branches;
}

std::vector<Leaves> readLeaves(UA_Client& client, const OperationLimits& limits,
                               const std::vector<Branch>& branches, bool types,
                               const std::stop_token& stop, const Bounds& bounds) {
    std::vector<Leaves> result(branches.size());
    std::vector<Seen> seen(branches.size());
    std::vector<Open> level;
    level.reserve(branches.size());
    for (std::size_t i = 0; i < branches.size(); ++i) {
        seen[i].nodes.insert(branches[i].id);
        level.push_back({i, branches[i].id, "", false});
    }
    std::size_t limit = bounds.nodes;
    for (int depth = 0; depth < bounds.levels && !level.empty() && limit > 0; ++depth) {
        std::vector<Parent> parents;
        parents.reserve(level.size());
        for (const Open& open : level) parents.push_back({open.id, open.isVariable});
        const std::vector<Children> answers = browseChildren(client, limits, parents, limit, stop);
        std::vector<Open> next;
        for (std::size_t i = 0; i < level.size(); ++i) {
            const std::size_t branch = level[i].branch;
            // Below the branch a node may vanish while it is walked; then it has no children.
            if (depth == 0) result[branch].status = answers[i].status;
            for (const Child& child : answers[i].nodes) {
                if (!seen[branch].nodes.insert(child.id).second) continue;
                const std::string name = level[i].path + child.name;
                next.push_back({branch, child.id, name + ".", child.isVariable});
                if (!child.isVariable) continue;
                if (seen[branch].names.insert(name).second) {
                    result[branch].leaves.push_back(
                        {name, branches[branch].name + "." + name, child.id, std::nullopt});
                } else {
                    const std::string id = toText(*child.id);
                    result[branch].leaves.push_back({id, id, child.id, std::nullopt});
                }
            }
        }
        level = std::move(next);
    }
    for (std::size_t i = 0; limit == 0 && i < branches.size(); ++i)
        result[i].leftOut = leftOut(branches[i].name, "dopo i primi", bounds.nodes, "nodi");
    for (const Open& open : level)
        if (!open.isVariable && result[open.branch].leftOut.empty())
            result[open.branch].leftOut =
                leftOut(branches[open.branch].name, "oltre", bounds.levels, "livelli");
    if (!types) return result;

    std::vector<NodeId> variables;
    for (const Leaves& branch : result)
        for (const Leaf& leaf : branch.leaves) variables.push_back(leaf.id);
    const std::vector<ValueType> read = readTypes(client, limits, variables, stop);
    auto type = read.begin();
    for (Leaves& branch : result)
        for (Leaf& leaf : branch.leaves) leaf.type = *type++;
    return result;
}

}  // namespace velt::opcua
