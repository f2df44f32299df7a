// The text of the settings file, for the store that keeps it and for the terminal: one line key=value for each setting,
// UTF-8. A backslash escapes itself ("\\"), line ends ("\n", "\r"), a NUL ("\0"), and in keys the equals sign ("\="),
// blanks at either end and a "#" in front. Its user edits it by hand: comments ("#"), blank lines and lines that say
// nothing to us stay in their places, and cost nothing but themselves.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrava::platform {

/// Hash and equality of keys without regard to case (ASCII letters), for lookup by any kind of text.
struct KeyHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view key) const;
};
struct KeyEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

using SettingsMap = std::unordered_map<std::string, std::string, KeyHash, KeyEqual>;

class SettingsText {
 public:
  /// Blanks around a key are no part of it; where one stands in front of the equals sign ("Miles = 1"), those around
  /// the value are none of the value either. Of two lines of one key the last one counts. A line that is not UTF-8 is
  /// read as Latin-1.
  /// @return none for bytes that are no text: they hold a NUL
  static std::optional<SettingsText> Parse(std::string_view bytes);

  const SettingsMap& Values() const { return values_; }

  /// A new key stands behind the last line that comes before it in order; the lines of a file that nobody edited are
  /// in order so.
  void Set(std::string_view key, std::string_view value);

  /// The whole file.
  std::string Bytes() const;

  /// What the user should know of: each line that has no equals sign, and each that is not UTF-8.
  struct Oddity {
    std::size_t lineNumber = 0;
    std::string what;  ///< "is no setting: 'Mils'"
    std::string Text() const { return "line " + std::to_string(lineNumber) + " " + what; }
  };
  const std::vector<Oddity>& Oddities() const { return oddities_; }

 private:
  struct Line {
    std::string text;        ///< as it stands in the file
    bool isSetting = false;  ///< else a comment, a blank line, or one that says nothing to us
    std::string key;
  };

  void Read(std::string_view line);
  std::size_t PlaceOfNew(std::string_view text) const;

  std::vector<Line> lines_;
  SettingsMap values_;
  std::vector<Oddity> oddities_;
};

}  // namespace kestrava::platform
