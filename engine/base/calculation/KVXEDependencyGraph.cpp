#include "engine/base/calculation/KVXEDependencyGraph.h"

#include <algorithm>

void KVXEDependencyGraph::reset(size_t count) {
  for (Node& node : m_nodes) {
    node.cell = nullptr;
    node.out.clear();
    node.in.clear();
  }
  m_nodes.resize(count);
  m_edgeCount = 0;
}

KVXEDependencyGraph::Vertex KVXEDependencyGraph::addVertex(KVXECell* cell) {
  m_nodes.emplace_back().cell = cell;
  return static_cast<Vertex>(m_nodes.size() - 1);
}

bool KVXEDependencyGraph::addEdge(Vertex from, Vertex to) {
  growToHold(std::max(from, to));
  Edges& in = m_nodes[to].in;
  Edges& out = m_nodes[from].out;
  const bool stands = in.size() < out.size() ? std::find(in.begin(), in.end(), from) != in.end()
                                             : std::find(out.begin(), out.end(), to) != out.end();
  if (stands) return false;
  in.push_back(from);
  out.push_back(to);
  ++m_edgeCount;
  return true;
}

std::uint32_t KVXEDependencyGraph::nextStamp() {
  if (++m_stamp == 0) {  // after four billion uses every old stamp could lie
    for (Node& node : m_nodes) node.stamp = 0;
    m_stamp = 1;
  }
  return m_stamp;
}

void KVXEDependencyGraph::dedupe(const std::vector<Vertex>& vertices, std::vector<Vertex>& distinct) {
  const std::uint32_t seen = nextStamp();
  distinct.clear();
  for (const Vertex v : vertices) {
    growToHold(v);
    if (m_nodes[v].stamp == seen) continue;
    m_nodes[v].stamp = seen;
    distinct.push_back(v);
  }
}

void KVXEDependencyGraph::learn(const std::vector<Vertex>& reads, const std::vector<Vertex>& writes,
                                const std::function<void(Vertex, Vertex)>& learned) {
  if (reads.empty()) return;
  dedupe(reads, m_reads);
  dedupe(writes, m_writes);
  for (const Vertex to : m_writes) {
    Edges& in = m_nodes[to].in;
    // The same reads as last time, in the same order?
    size_t matched = 0;
    bool isRepeat = true;
    for (const Vertex from : m_reads) {
      if (from == to) continue;
      isRepeat = matched < in.size() && in[matched] == from;
      if (!isRepeat) break;
      ++matched;
    }
    if (isRepeat) continue;
    const std::uint32_t known = nextStamp();
    for (const Vertex from : in) m_nodes[from].stamp = known;
    for (const Vertex from : m_reads) {
      if (from == to || m_nodes[from].stamp == known) continue;
      in.push_back(from);
      m_nodes[from].out.push_back(to);
      ++m_edgeCount;
      if (learned) learned(from, to);
    }
  }
}

void KVXEDependencyGraph::clearOutEdges(Vertex v) {
  Edges& out = m_nodes[v].out;
  for (const Vertex to : out) {
    Edges& in = m_nodes[to].in;
    in.erase(std::find(in.begin(), in.end(), v));
  }
  m_edgeCount -= out.size();
  out.clear();
}

size_t KVXEDependencyGraph::getBytes() const {
  size_t bytes = sizeof(*this) + m_nodes.capacity() * sizeof(Node);
  for (const Node& node : m_nodes)
    for (const Edges* edges : {&node.out, &node.in})
      if (edges->capacity() > InlineEdges) bytes += edges->capacity() * sizeof(Vertex);
  return bytes;
}

std::string KVXEDependencyGraph::checkInvariants() const {
  size_t edges = 0;
  for (Vertex v = 0; v < m_nodes.size(); ++v) {
    std::vector<Vertex> targets(m_nodes[v].out.begin(), m_nodes[v].out.end());
    edges += targets.size();
    for (const Vertex to : targets) {
      if (to >= m_nodes.size()) return "an edge of vertex " + std::to_string(v) + " leads out of the graph";
      if (to == v && v != 0) return "vertex " + std::to_string(v) + " depends on itself";
      const Edges& in = m_nodes[to].in;
      if (std::find(in.begin(), in.end(), v) == in.end())
        return "the edge " + std::to_string(v) + " -> " + std::to_string(to) + " is missing at its target";
    }
    std::sort(targets.begin(), targets.end());
    if (std::adjacent_find(targets.begin(), targets.end()) != targets.end())
      return "vertex " + std::to_string(v) + " has an edge twice";
  }
  return edges == m_edgeCount ? std::string() : "the count of edges is off";
}
