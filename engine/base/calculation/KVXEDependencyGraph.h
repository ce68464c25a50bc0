#pragma once

#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

class KVXECell;

/// The graph of learned dependencies. A vertex stands for a cell, an edge `r -> w` says that a formula which
/// wrote `w` had read `r`; so out-edges lead to what depends on a cell.
///
/// At most one edge joins a pair, and none joins a vertex to itself. Indices are stable: a vertex whose cell
/// went away stays as a hole. Vertex 0 is the root of the invalidation walk and belongs to the first cell as
/// well: its out-edges are replaced by the seeds of each walk.
///
/// Edges are kept on both ends. Learning compares the reads of a frame with the in-edges in the order in
/// which they were learned, so a formula that reads the same cells again costs one pass and no search.
class KVXEDependencyGraph {
 public:
  using Vertex = std::uint32_t;
  /// Edges kept without a heap block; most cells have no more.
  static constexpr size_t InlineEdges = 4;
  using Edges = boost::container::small_vector<Vertex, InlineEdges>;

  /// A graph of `count` vertices without cells or edges.
  explicit KVXEDependencyGraph(size_t count) { reset(count); }
  /// Drops all edges and cells, keeping the memory for the next round of learning.
  void reset(size_t count);

  size_t size() const { return m_nodes.size(); }
  Vertex addVertex(KVXECell* cell);
  KVXECell* getCell(Vertex v) const { return m_nodes[v].cell; }
  void setCell(Vertex v, KVXECell* cell) { m_nodes[v].cell = cell; }

  /// Adds one edge, growing the vertex list to hold both ends. False if it stands already.
  bool addEdge(Vertex from, Vertex to);
  /// Makes every written vertex depend on every read one. `learned`, if set, is told of each new edge.
  void learn(const std::vector<Vertex>& reads, const std::vector<Vertex>& writes,
             const std::function<void(Vertex from, Vertex to)>& learned);
  void clearOutEdges(Vertex v);
  std::span<const Vertex> getOutEdges(Vertex v) const {
    return {m_nodes[v].out.data(), m_nodes[v].out.size()};
  }
  std::span<const Vertex> getInEdges(Vertex v) const { return {m_nodes[v].in.data(), m_nodes[v].in.size()}; }
  size_t getEdgeCount() const { return m_edgeCount; }
  size_t getBytes() const;

  /// Visits every vertex that can be reached from `root`, depth first, each once, with the vertex from which
  /// it was reached (itself for the root).
  template <class Visitor>
  void visitDepthFirst(Vertex root, Visitor&& visit);

  /// The first breach of the invariants above in words, or an empty text.
  std::string checkInvariants() const;

 private:
  struct Node {
    KVXECell* cell = nullptr;
    std::uint32_t stamp = 0;
    Edges out;
    Edges in;
  };

  std::uint32_t nextStamp();
  /// Copies `vertices` to `distinct` without repetitions, in order.
  void dedupe(const std::vector<Vertex>& vertices, std::vector<Vertex>& distinct);
  void growToHold(Vertex v) {
    if (v >= m_nodes.size()) m_nodes.resize(size_t{v} + 1);
  }

  std::vector<Node> m_nodes;
  std::uint32_t m_stamp = 0;
  size_t m_edgeCount = 0;
  std::vector<Vertex> m_reads, m_writes;                    // scratch of learn
  std::vector<std::pair<Vertex, std::uint32_t>> m_pending;  // scratch of the walk
};

template <class Visitor>
void KVXEDependencyGraph::visitDepthFirst(Vertex root, Visitor&& visit) {
  const std::uint32_t seen = nextStamp();
  m_pending.clear();
  m_nodes[root].stamp = seen;
  visit(root, root);
  m_pending.emplace_back(root, 0);
  while (!m_pending.empty()) {
    auto& [v, next] = m_pending.back();
    const Vertex from = v;
    if (next == m_nodes[from].out.size()) {
      m_pending.pop_back();
      continue;
    }
    const Vertex to = m_nodes[from].out[next++];
    if (m_nodes[to].stamp == seen) continue;
    m_nodes[to].stamp = seen;
    visit(to, from);
    m_pending.emplace_back(to, 0);
  }
}
