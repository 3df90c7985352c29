#ifndef STANDALONE_OUTPUT_RENDERER_H
#define STANDALONE_OUTPUT_RENDERER_H

#include <cstddef>
#include <iosfwd>
#include <memory>

#include "standalone/output/items.h"

namespace standalone {

/// Writes the results of a run to a stream, a command at a time.
class Renderer {
 public:
  virtual ~Renderer() = default;
  virtual void Write(const CommandResult& result) = 0;
};

/// For people: messages, and tables that fit `width` terminal columns. The stream must outlive the renderer.
std::unique_ptr<Renderer> MakeTextRenderer(std::ostream& stream, std::size_t width);

/// For programs: one JSON object a line. The stream must outlive the renderer.
std::unique_ptr<Renderer> MakeJsonRenderer(std::ostream& stream);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_RENDERER_H
