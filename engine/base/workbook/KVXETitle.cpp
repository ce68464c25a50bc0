#include "engine/base/workbook/KVXETitle.h"

#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::TitleType;

namespace {

constexpr std::size_t indexOf(TitleType type) {
  return static_cast<std::size_t>(type);
}

/// The blank at which a column head is broken: the one nearest to the middle, the right one on a tie.
std::size_t findBreak(const std::string& text) {
  const std::size_t half = text.size() / 2;
  const std::size_t left = text.rfind(' ', half);
  const std::size_t right = text.find(' ', half);
  if (left == std::string::npos) return right;
  if (right == std::string::npos) return left;
  return half - left < right - half ? left : right;
}

std::string breakInTwo(const std::string& text) {
  const std::size_t at = findBreak(text);
  if (at == std::string::npos) return text;
  std::string second = text.substr(at);
  KVXMHelperUtils::ltrim(second);
  return second.size() < 2 ? text : text.substr(0, at) + "<br>" + second;
}

std::string paddingOf(const std::string& text) {
  int count = 0;
  if (text == "Name") count = 15;
  if (text == "Clock" || text == "Clock Tag") count = 25;
  if (text == "Configuration") count = 55;
  std::string padding;
  while (count-- > 0) padding += "&nbsp;";
  return padding;
}

}  // namespace

KVXETitle::KVXETitle(std::string name) {
  init(std::move(name));
}

KVXETitle::KVXETitle(std::string name, std::string display) {
  init(std::move(name));
  setDisplayTag(display);
}

KVXETitle::KVXETitle(std::string name, std::string display, std::string lvr)
    : KVXETitle(std::move(name), std::move(display)) {
  m_tags[indexOf(TitleType::LVR)] = std::move(lvr);
}

void KVXETitle::init(std::string&& name) {
  std::string display = name;
  KVXMHelperUtils::convertToCamelString(display);
  std::string key = display;
  KVXMHelperUtils::removeWhiteSpaces(key);
  m_tags[indexOf(TitleType::DISPLAY)] = std::move(display);
  m_tags[indexOf(TitleType::SW)] = std::move(name);
  m_tags[indexOf(TitleType::LVR)] = key;
  m_tags[indexOf(TitleType::RP)] = key;
  m_tags[indexOf(TitleType::KVX)] = std::move(key);
}

const std::string& KVXETitle::getTag(TitleType type) const {
  return m_tags.at(indexOf(type));
}

void KVXETitle::setDisplayTag(const std::string& display) {
  m_tags[indexOf(TitleType::DISPLAY)] = display;
}

std::string KVXETitle::getDisplayTag(bool wrap) const {
  const std::string& text = getTag(TitleType::DISPLAY);
  if (!wrap) return text;
  return "<html>" + breakInTwo(text) + paddingOf(text) + "</html>";
}
