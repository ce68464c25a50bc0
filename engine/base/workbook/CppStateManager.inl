#pragma once

#include <iostream>
#include <iterator>

#include "engine/base/workbook/CppStateManager.h"
#include "engine/base/workbook/KVXEEnums.h"

template <class Node, class State>
CppStateNodesBundle<Node, State>::~CppStateNodesBundle() {
  for (Node* node : m_nodes) node->mp_state = nullptr;
}

template <class Node, class State>
void CppStateNodesBundle<Node, State>::insert(Node* node) {
  node->mp_state = this;
  node->m_stateSlot = static_cast<unsigned int>(m_nodes.size());
  m_nodes.push_back(node);
}

template <class Node, class State>
void CppStateNodesBundle<Node, State>::remove(Node* node) {
  Node* last = m_nodes.back();
  m_nodes[node->m_stateSlot] = last;
  last->m_stateSlot = node->m_stateSlot;
  m_nodes.pop_back();
}

template <class Node, class State>
typename CppStateManager<Node, State>::Bundles& CppStateManager<Node, State>::findOrCreate(State state) {
  StateList& list = at(state);
  list.exists = true;
  return list.bundles;
}

template <class Node, class State>
bool CppStateManager<Node, State>::setState(Node* node, State state) {
  if (!node) return true;
  if (node->mp_state) {
    if (node->mp_state->getState() == state) return true;
    clearState(node);
  }
  Bundles& bundles = findOrCreate(state);
  if (bundles.empty()) bundles.push_back(std::make_unique<Bundle>(state));
  bundles.front()->insert(node);
  return true;
}

template <class Node, class State>
void CppStateManager<Node, State>::clearState(Node* node) {
  Bundle* bundle = node->mp_state;
  if (!bundle) return;
  if (bundle->holds(node)) {
    bundle->remove(node);
  } else {
    std::cerr << "Trying to clear state of a node which does not contain that state!\n"
              << bundle->getState() << " - " << static_cast<const void*>(bundle) << '\n';
  }
  node->mp_state = nullptr;
}

template <class Node, class State>
State CppStateManager<Node, State>::getState(const Node* node) const {
  if (node && node->mp_state) return node->mp_state->getState();
  std::cerr << "Trying to getState for a node for which mp_state pointer is nullptr\n";
  return State{};
}

template <class Node, class State>
void CppStateManager<Node, State>::reportIfMistagged(const Bundle& bundle, State state) const {
  if (bundle.getState() != state)
    std::cerr << bundle.getState() << " state found instead of state " << state << '\n';
}

template <class Node, class State>
unsigned int CppStateManager<Node, State>::getStateUsage(State state) const {
  size_t usage = 0;
  for (const auto& bundle : at(state).bundles) {
    reportIfMistagged(*bundle, state);
    usage += bundle->getNodes().size();
  }
  return static_cast<unsigned int>(usage);
}

template <class Node, class State>
void CppStateManager<Node, State>::getStateNodes(State state, std::vector<Node*>& nodes) const {
  for (const auto& bundle : at(state).bundles) {
    reportIfMistagged(*bundle, state);
    nodes.insert(nodes.end(), bundle->getNodes().begin(), bundle->getNodes().end());
  }
}

template <class Node, class State>
bool CppStateManager<Node, State>::migrateGivenStateTo(State from, State to) {
  if (from == to || !at(from).exists) return true;
  Bundles& target = findOrCreate(to);
  Bundles source = std::move(at(from).bundles);
  at(from) = StateList{};
  source.insert(source.end(), std::make_move_iterator(target.begin()), std::make_move_iterator(target.end()));
  target = std::move(source);
  return purgeStateUsage(to);
}

template <class Node, class State>
bool CppStateManager<Node, State>::migrateAllStatesTo(State to) {
  bool isUnfragmented = true;
  for (size_t i = 0; i < m_states.size(); ++i)
    if (m_states[i].exists) isUnfragmented &= migrateGivenStateTo(static_cast<State>(i), to);
  return isUnfragmented;
}

template <class Node, class State>
bool CppStateManager<Node, State>::swapStates(State a, State b) {
  if (a == b) return true;
  findOrCreate(a).swap(findOrCreate(b));
  const bool isUnfragmented = purgeStateUsage(a);
  return purgeStateUsage(b) && isUnfragmented;
}

template <class Node, class State>
bool CppStateManager<Node, State>::purgeStateUsage(State state) {
  Bundles& bundles = at(state).bundles;
  std::erase_if(bundles, [](const auto& bundle) { return bundle->m_nodes.empty(); });
  if (bundles.empty()) return true;
  size_t nodes = 0;
  for (const auto& bundle : bundles) {
    bundle->m_state = state;
    nodes += bundle->m_nodes.size();
  }
  const float mean = static_cast<float>(nodes) / static_cast<float>(bundles.size());
  if (mean > 3.0f) return true;
  defragmentStateUsage(state);
  return false;
}

template <class Node, class State>
void CppStateManager<Node, State>::defragmentStateUsage(State state) {
  Bundles& bundles = at(state).bundles;
  if (bundles.empty()) return;
  for (size_t i = 1; i < bundles.size(); ++i) {
    for (Node* node : bundles[i]->m_nodes) bundles.front()->insert(node);
    bundles[i]->m_nodes.clear();
  }
  bundles.resize(1);
}

template <class Node, class State>
void CppStateManager<Node, State>::printStateUsage(unsigned int line) const {
  std::cout << "State usage";
  if (line != 0) std::cout << " at line " << line;
  std::cout << '\n';
  unsigned int total = 0;
  for (size_t i = 0; i < m_states.size(); ++i) {
    if (!m_states[i].exists) continue;
    const State state = static_cast<State>(i);
    const unsigned int usage = getStateUsage(state);
    total += usage;
    std::cout << '\t' << state << " -> " << usage << " (in " << m_states[i].bundles.size() << " fragments)\n";
  }
  std::cout << "Total -> " << total << '\n';
}

template <class Node, class State>
std::string CppStateManager<Node, State>::checkInvariants() const {
  for (size_t i = 0; i < m_states.size(); ++i) {
    const State state = static_cast<State>(i);
    for (const auto& bundle : m_states[i].bundles) {
      if (!m_states[i].exists) return "a state without a list holds a bundle: " + KVXEEnums::nameOf(state);
      if (bundle->getState() != state)
        return "a bundle is listed under another state: " + KVXEEnums::nameOf(state);
      for (const Node* node : bundle->getNodes())
        if (node->mp_state != bundle.get() || !bundle->holds(node))
          return "a node does not know its bundle in state " + KVXEEnums::nameOf(state);
    }
  }
  return {};
}
