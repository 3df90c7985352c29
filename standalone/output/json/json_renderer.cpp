#include <ostream>

#include "standalone/output/json/result_json.h"
#include "standalone/output/renderer.h"

namespace standalone {
namespace {

class JsonRenderer final : public Renderer {
 public:
  explicit JsonRenderer(std::ostream& stream) : fStream(stream) {}

  void Write(const CommandResult& result) override {
    JsonWriter json(fStream);
    WriteJson(json, result);
    fStream << '\n';
  }

 private:
  std::ostream& fStream;
};

}  // namespace

std::unique_ptr<Renderer> MakeJsonRenderer(std::ostream& stream, const OutputLook& /*look*/) {
  return std::make_unique<JsonRenderer>(stream);
}

}  // namespace standalone
