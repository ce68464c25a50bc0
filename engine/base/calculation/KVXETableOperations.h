#pragma once

/// Tells the calculation that a table operation is at work: rows that it inserts and deletes keep the graph
/// in step by themselves, so the next incremental calculation need not learn the graph anew.
class KVXETableOperations {
 public:
  static KVXETableOperations& getGlobal();

  bool getIsTableOperationActive() const { return m_isTableOperationActive; }

  /// Marks an operation as active for as long as it lives.
  class Scope {
   public:
    Scope() : m_before(getGlobal().m_isTableOperationActive) { getGlobal().m_isTableOperationActive = true; }
    ~Scope() { getGlobal().m_isTableOperationActive = m_before; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    bool m_before;
  };

 private:
  bool m_isTableOperationActive = false;
};
