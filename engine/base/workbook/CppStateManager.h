#pragma once

#include <array>
#include <memory>
#include <vector>

/// A fragment of the population of one state. The sizes of all bundles of a state add up to its usage.
///
/// Nodes know their place (`m_stateSlot`), so that leaving a bundle costs a swap with the last one.
template <class Node, class State>
class CppStateNodesBundle {
 public:
  explicit CppStateNodesBundle(State state) : m_state(state) {}
  CppStateNodesBundle(const CppStateNodesBundle&) = delete;
  CppStateNodesBundle& operator=(const CppStateNodesBundle&) = delete;
  ~CppStateNodesBundle();

  State getState() const { return m_state; }
  const std::vector<Node*>& getNodes() const { return m_nodes; }
  bool holds(const Node* node) const {
    return node->m_stateSlot < m_nodes.size() && m_nodes[node->m_stateSlot] == node;
  }

 private:
  template <class, class>
  friend class CppStateManager;

  void insert(Node* node);
  void remove(Node* node);

  State m_state;
  std::vector<Node*> m_nodes;
};

/// Holds the states of all nodes in a form that lets a whole class of nodes change state in constant time.
///
/// A node is in exactly one bundle; its `mp_state` points at it, and the bundle's state equals the key under
/// which it is listed. To move all nodes from one state to another the list of bundles is spliced and
/// retagged; no node is touched. Small fragments are merged when their mean size falls to 3 or below.
///
/// `Node` has public members `mp_state` (the bundle) and `m_stateSlot` (its place there); `State` is one of
/// the enumerations of KVXEEnums.
template <class Node, class State>
class CppStateManager {
 public:
  using Bundle = CppStateNodesBundle<Node, State>;

  CppStateManager() = default;
  CppStateManager(const CppStateManager&) = delete;
  CppStateManager& operator=(const CppStateManager&) = delete;

  /// Moves the node; true also for a null node and for the state that it has already.
  bool setState(Node* node, State state);
  /// Takes the node out of its bundle, which stays even when it becomes empty.
  void clearState(Node* node);
  /// The state of the node; a node without one is reported and gives the first enumerator.
  State getState(const Node* node) const;

  /// How many nodes have the state.
  unsigned int getStateUsage(State state) const;
  /// Appends the nodes of the state.
  void getStateNodes(State state, std::vector<Node*>& nodes) const;

  /// Moves all nodes of `from` to `to`. False when the fragments of `to` had to be merged.
  bool migrateGivenStateTo(State from, State to);
  /// The same from every other state.
  bool migrateAllStatesTo(State to);
  /// Exchanges the populations of two states.
  bool swapStates(State a, State b);

  /// Retags and drops empty bundles; merges when the mean size is at most 3 and then returns false.
  bool purgeStateUsage(State state);
  /// Merges all bundles of the state into its first.
  void defragmentStateUsage(State state);

  /// Prints the usage of every state on standard output, with a line number if it is not 0.
  void printStateUsage(unsigned int line) const;

  /// The first breach of the class's invariant in words, or an empty text.
  std::string checkInvariants() const;

 private:
  using Bundles = std::vector<std::unique_ptr<Bundle>>;

  // A state that nothing ever entered has no list, which migration tells from an empty one.
  struct StateList {
    bool exists = false;
    Bundles bundles;
  };

  StateList& at(State state) { return m_states[static_cast<size_t>(state)]; }
  const StateList& at(State state) const { return m_states[static_cast<size_t>(state)]; }
  Bundles& findOrCreate(State state);
  void reportIfMistagged(const Bundle& bundle, State state) const;

  // NumItems has its list too: it is the state of a node that was taken out, and may be handed back in.
  std::array<StateList, static_cast<size_t>(State::NumItems) + 1> m_states;
};
