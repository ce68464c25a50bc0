#pragma once

#include <boost/iostreams/filtering_stream.hpp>
#include <memory>
#include <string>

namespace tqm::iostreams {

using input = boost::iostreams::input;
using output = boost::iostreams::output;

/// How writing goes; shared by a stream and its sink, since the library hides the errors of a sink.
struct seal_state {
  std::string path;
  std::string error;      ///< empty while all goes well
  bool is_whole = false;  ///< the writer says that nothing is missing
};

/// A stream to or from a file that a functor (xp_latest, xp_version18) sets up.
template <class Mode>
class filtering_stream : public boost::iostreams::filtering_stream<Mode> {
 public:
  filtering_stream() = default;

  void watch(std::shared_ptr<seal_state> state) { m_state = std::move(state); }
  /// Finishes what is written, all the way to the file. A stream that ends without, as when an exception
  /// leaves its writer, makes no file that is_xp_format takes for one.
  /// @throws NException with the path and the reason when not everything got there.
  void close();

 private:
  std::shared_ptr<seal_state> m_state;
};

extern template class filtering_stream<input>;
extern template class filtering_stream<output>;

}  // namespace tqm::iostreams
