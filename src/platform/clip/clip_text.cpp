#include "platform/clip/clip_text.h"

#include <vector>

#include "platform/clip/clip_units.h"

bool WriteClipText(int unit, const char* text, size_t length) {
  std::vector<uint8_t> clip = MakeFtxtClip(text, length);
  return !clip.empty() && WriteClipUnit(unit, clip);
}

ClipStatus ReadClipText(int unit, std::string& text) {
  text.clear();
  std::vector<uint8_t> clip;
  if (!ReadClipUnit(unit, clip)) return ClipStatus::Failed;
  return ParseFtxtClip(clip.data(), clip.size(), text);
}
