// A depth-first walk on a stack of its own, so that a chain of any length needs no recursion.
#ifndef STEPRT_EXPRESS_POST_ORDER_H
#define STEPRT_EXPRESS_POST_ORDER_H

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace express {

// Returns all nodes that are reachable from `nodes`, each once and after its successors. `successors(node)` returns a
// vector of pointers; null ones are passed over. `onRing(node, i)` is called for successor i of `node` if that edge
// closes a ring; the edge is otherwise ignored.
template <class Node, class Successors, class OnRing>
std::vector<Node*> PostOrder(const std::vector<Node*>& nodes, Successors successors, OnRing onRing) {
  struct Frame {
    Node* node;
    std::vector<Node*> successors;
    std::size_t next = 0;
  };
  std::vector<Node*> order;
  std::vector<Frame> stack;
  std::unordered_map<const Node*, bool> finished;  // false for those on the stack
  const auto enter = [&](Node* node) {
    if (node != nullptr && finished.emplace(node, false).second) stack.push_back({node, successors(node)});
  };
  for (Node* start : nodes) {
    enter(start);
    while (!stack.empty()) {
      Frame& frame = stack.back();
      if (frame.next == frame.successors.size()) {
        finished[frame.node] = true;
        order.push_back(frame.node);
        stack.pop_back();
        continue;
      }
      const std::size_t i = frame.next++;
      Node* const successor = frame.successors[i];
      const auto seen = finished.find(successor);
      if (seen == finished.end()) {
        enter(successor);  // the frame is no longer valid
      } else if (!seen->second) {
        onRing(frame.node, i);
      }
    }
  }
  return order;
}

}  // namespace express

#endif
