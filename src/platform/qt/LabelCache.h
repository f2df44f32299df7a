// Rendered labels with their halo, kept by text, face and colour: a map shows the same names on every tick. Lines that
// change with the time go two pictures later.
#pragma once

#include <QFont>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Raster.h"

namespace kestrava::platform::qt {

/// A picture of a text; the text's own top left stands at (margin, margin).
struct Label {
  std::vector<std::uint32_t> pixels;  // premultiplied
  int width = 0;
  int height = 0;
  int margin = 0;
  PixelView View() const { return {const_cast<std::uint32_t*>(pixels.data()), width, height}; }
};

class LabelCache {
 public:
  /// The label of a text in the given look; rendered only when it has not been asked for lately.
  /// @param look  tells faces, sizes and halos apart; below 65536
  const Label& Get(std::string_view text, std::uint32_t look, std::uint32_t rgb, const QFont& font, int haloPixels);
  void Clear();
  /// A picture is begun anew: what was not printed on the one before it goes when the next one begins.
  void NextPicture();
  int RenderCount() const { return renderCount_; }

 private:
  struct Key {
    std::string text;
    std::uint64_t look;
  };
  struct KeyView {
    std::string_view text;
    std::uint64_t look;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const KeyView& key) const {
      return std::hash<std::string_view>{}(key.text) ^ (key.look * 0x9e3779b97f4a7c15u);
    }
    std::size_t operator()(const Key& key) const { return (*this)(KeyView{key.text, key.look}); }
  };
  struct Equal {
    using is_transparent = void;
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
      return a.look == b.look && a.text == b.text;
    }
  };
  using Map = std::unordered_map<Key, Label, Hash, Equal>;

  Map recent_;   // asked for since the last change of generations
  Map earlier_;  // dropped at the next change unless asked for again
  std::size_t recentBytes_ = 0;
  int renderCount_ = 0;
};

/// Renders one text with a halo of the opposite tone. @param haloPixels  0 for none
Label RenderLabel(std::string_view text, std::uint32_t rgb, const QFont& font, int haloPixels);

}  // namespace kestrava::platform::qt
