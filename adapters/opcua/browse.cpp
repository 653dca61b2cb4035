// SPDX-License-Identifier: MIT
#include "adapters/opcua/browse.h"

#include "adapters/opcua/status.h"

#include <open62541/nodeids.h>

#include <algorithm>
#include <numeric>

namespace velt::opcua {
namespace {

constexpr std::size_t MaxName = 1'000;  ///< bytes; a longer name is no variable to an operator
/// Empty answers that a server may give to "more, please" before it is not asked any more.
constexpr std::size_t MaxPages = 10'000;

using BrowseService =
    Service<UA_BrowseRequest, UA_TYPES_BROWSEREQUEST, UA_BrowseResponse, UA_TYPES_BROWSERESPONSE>;
using BrowseNextService = Service<UA_BrowseNextRequest, UA_TYPES_BROWSENEXTREQUEST,
                                  UA_BrowseNextResponse, UA_TYPES_BROWSENEXTRESPONSE>;

/// One walk through answers and continuations.
class Browse {
public:
    Browse(UA_Client& client, const OperationLimits& limits, const std::vector<Parent>& parents,
           std::size_t& limit, const std::stop_token& stop)
        : client_(client),
          limits_(limits),
          parents_(parents),
          limit_(limit),
          stop_(stop),
          children_(parents.size()) {}

    std::vector<Children> run() {
        std::vector<std::size_t> all(parents_.size());
        std::iota(all.begin(), all.end(), std::size_t{0});
        start(all, limits_.browse);
        finish();
        // A server has only so many continuations at a time: what got none is asked for singly.
        for (const std::size_t parent : std::exchange(again_, {})) {
            start({parent}, 1);
            finish();
        }
        for (const std::size_t parent : again_)
            children_[parent].status = UA_STATUSCODE_BADNOCONTINUATIONPOINTS;
        return std::move(children_);
    }

private:
    struct Continuation {
        std::size_t parent;
        OwnedBytes point;
    };

    void start(const std::vector<std::size_t>& which, std::size_t size) {
        std::vector<UA_BrowseDescription> descriptions(which.size());
        for (std::size_t i = 0; i < which.size(); ++i) {
            const Parent& parent = parents_[which[i]];
            UA_BrowseDescription& description = descriptions[i];
            description.nodeId = *parent.id;
            description.browseDirection = UA_BROWSEDIRECTION_FORWARD;
            description.referenceTypeId = UA_NODEID_NUMERIC(
                0, parent.isVariable ? UA_NS0ID_HASCOMPONENT : UA_NS0ID_HIERARCHICALREFERENCES);
            description.includeSubtypes = true;
            description.nodeClassMask = UA_NODECLASS_OBJECT | UA_NODECLASS_VARIABLE;
            description.resultMask = UA_BROWSERESULTMASK_REFERENCETYPEID |
                                     UA_BROWSERESULTMASK_NODECLASS | UA_BROWSERESULTMASK_BROWSENAME;
        }
        exchangeSlices<BrowseService>(
            client_, which.size(), size,
            [&descriptions](const Slice& part, UA_BrowseRequest& request) {
                request.nodesToBrowse = descriptions.data() + part.first;
                request.nodesToBrowseSize = part.size;
            },
            [&](const Slice& part, const UA_BrowseResponse& response) {
                eachResult(part, response, [&](std::size_t i, const UA_BrowseResult& result) {
                    take(which[i], result);
                });
            },
            stop_);
    }

    void take(std::size_t parent, const UA_BrowseResult& result) {
        if (result.statusCode == UA_STATUSCODE_BADNOCONTINUATIONPOINTS) {
            again_.push_back(parent);
            return;
        }
        if (UA_StatusCode_isBad(result.statusCode)) {
            children_[parent].status = result.statusCode;
            return;
        }
        for (std::size_t i = 0; i < result.referencesSize && limit_ > 0; ++i)
            add(children_[parent], result.references[i]);
        if (result.continuationPoint.length > 0)
            continuations_.push_back({parent, OwnedBytes::copyOf(result.continuationPoint)});
    }

    void add(Children& children, const UA_ReferenceDescription& reference) {
        const UA_NodeId property = UA_NODEID_NUMERIC(0, UA_NS0ID_HASPROPERTY);
        if (UA_NodeId_equal(&reference.referenceTypeId, &property)) return;
        const std::string_view name = view(reference.browseName.name);
        if (!UA_ExpandedNodeId_isLocal(&reference.nodeId) || name.empty() || name.size() > MaxName)
            return;
        --limit_;
        children.nodes.push_back({NodeId(NodeId::copyOf(reference.nodeId.nodeId)),
                                  std::string(name), reference.nodeClass == UA_NODECLASS_VARIABLE});
    }

    void finish() {
        for (std::size_t page = 0; !continuations_.empty(); ++page) {
            const std::vector<Continuation> points = std::exchange(continuations_, {});
            const bool enough = limit_ == 0 || page >= MaxPages;
            next(points, enough);
            if (enough) return;
        }
    }

    /// Goes on at these points, or gives them back to the server.
    void next(const std::vector<Continuation>& points, bool release) {
        std::vector<UA_ByteString> bytes;
        bytes.reserve(points.size());
        for (const Continuation& continuation : points) bytes.push_back(*continuation.point);
        exchangeSlices<BrowseNextService>(
            client_, bytes.size(), limits_.browse,
            [&](const Slice& part, UA_BrowseNextRequest& request) {
                request.releaseContinuationPoints = release;
                request.continuationPoints = bytes.data() + part.first;
                request.continuationPointsSize = part.size;
            },
            [&](const Slice& part, const UA_BrowseNextResponse& response) {
                if (release) return;
                eachResult(part, response, [&](std::size_t i, const UA_BrowseResult& result) {
                    take(points[i].parent, result);
                });
            },
            stop_);
    }

    UA_Client& client_;
    const OperationLimits& limits_;
    const std::vector<Parent>& parents_;
    std::size_t& limit_;
    const std::stop_token& stop_;
    std::vector<Children> children_;
    std::vector<Continuation> continuations_;
    std::vector<std::size_t> again_;
};

}  // namespace

std::vector<Children> browseChildren(UA_Client& client, const OperationLimits& limits,
                                     const std::vector<Parent>& parents, std::size_t& limit,
                                     const std::stop_token& stop) {
    return Browse(client, limits, parents, limit, stop).run();
}

}  // namespace velt::opcua
