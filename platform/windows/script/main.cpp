// Runs pieces of script for the designer, in a process of its own that can be given up: a line of
// JSON comes in for each piece, {"run": "..."}, and a line goes out, {"value": "..."},
// {"fault": "..."} or {"late": true}. The same program as elsewhere, on an engine that is small
// enough to be built for this system.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <duktape.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ScriptLimits.h"

namespace {

using namespace morvane;
using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

/// What one engine knows of its limits.
struct Limits {
  std::size_t bytes = 0;
  Clock::time_point end = Clock::time_point::max();
  bool isLate = false;
};

/// Before each block stands its size.
constexpr std::size_t kHead = alignof(std::max_align_t);
constexpr std::size_t kHalfBytes = 3;

std::size_t& SizeOf(void* head) { return *static_cast<std::size_t*>(head); }

/// Whoever waits takes the end of the process for too much memory: no script can go on from there.
void Count(Limits& limits, std::size_t less, std::size_t more) {
  limits.bytes = limits.bytes - less + more;
  if (limits.bytes > kScriptBytes) std::_Exit(EXIT_FAILURE);
}

void* Reallocate(void* user, void* block, duk_size_t size) {
  void* head = block == nullptr ? nullptr : static_cast<char*>(block) - kHead;
  Count(*static_cast<Limits*>(user), head == nullptr ? 0 : SizeOf(head), size);
  if (size == 0) {
    std::free(head);
    return nullptr;
  }
  void* made = std::realloc(head, size + kHead);
  if (made == nullptr) std::_Exit(EXIT_FAILURE);
  SizeOf(made) = size;
  return static_cast<char*>(made) + kHead;
}

void* Allocate(void* user, duk_size_t size) { return Reallocate(user, nullptr, size); }

void Free(void* user, void* block) {
  if (block != nullptr) Reallocate(user, block, 0);
}

/// What nothing catches ends the process.
void End(void* /*user*/, const char* /*message*/) { std::_Exit(EXIT_FAILURE); }

/// The half of a pair that stands there as three bytes of its own; nothing if there is none.
std::optional<std::uint32_t> HalfAt(std::string_view text, std::size_t at, std::uint32_t from) {
  constexpr std::uint32_t count = 0x400;
  const std::string_view bytes = at < text.size() ? text.substr(at, kHalfBytes) : "";
  if (bytes.size() < kHalfBytes || bytes[0] != '\xED') return std::nullopt;
  const auto bits = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]) & 0x3FU; };
  const std::uint32_t half = 0xD000U | (bits(1) << 6U) | bits(2);
  if (half < from || half >= from + count) return std::nullopt;
  return half - from;
}

void AppendSign(std::string& text, std::uint32_t sign) {
  text += static_cast<char>(0xF0U | (sign >> 18U));
  for (const unsigned shift : {12U, 6U, 0U}) {
    text += static_cast<char>(0x80U | ((sign >> shift) & 0x3FU));
  }
}

/// UTF-8 of what the engine keeps, where both halves of a pair stand by themselves and one may be
/// alone.
std::string Valid(std::string_view text) {
  constexpr std::uint32_t highs = 0xD800;
  constexpr std::uint32_t lows = 0xDC00;
  constexpr std::uint32_t beyond = 0x10000;
  std::string joined;
  for (std::size_t i = 0; i < text.size();) {
    const auto high = HalfAt(text, i, highs);
    const auto low = HalfAt(text, i + kHalfBytes, lows);
    if (high && low) {
      AppendSign(joined, beyond + (*high << 10U) + *low);
      i += 2 * kHalfBytes;
    } else {
      joined += text[i++];
    }
  }
  const std::string checked = Json(joined).dump(-1, ' ', true, Json::error_handler_t::replace);
  return Json::parse(checked).get<std::string>();
}

std::string TopAsText(duk_context* engine) {
  duk_size_t length = 0;
  const char* text = duk_safe_to_lstring(engine, -1, &length);
  return Valid({text, length});
}

Json Answer(duk_context* engine, Limits& limits, const std::string& program) {
  limits.isLate = false;
  limits.end = Clock::now() + std::chrono::milliseconds(kScriptMilliseconds);
  const bool failed = duk_peval_lstring(engine, program.data(), program.size()) != 0;
  // A value may run a function of its own to become text.
  const std::string text =
      !failed && duk_is_undefined(engine, -1) != 0 ? std::string() : TopAsText(engine);
  limits.end = Clock::time_point::max();
  duk_pop(engine);
  if (limits.isLate) return {{"late", true}};
  if (failed) return {{"fault", text}};
  if (text.size() > kScriptAnswerBytes) return {{"fault", "the answer is too long"}};
  return {{"value", text}};
}

/// The piece of script in a line; nothing runs for a line that is none.
std::string ProgramIn(const std::string& line) {
  const Json request = Json::parse(line, nullptr, false);
  const auto run = request.is_object() ? request.find("run") : request.end();
  return request.is_object() && run != request.end() && run->is_string() ? run->get<std::string>()
                                                                         : std::string();
}

}  // namespace

/// The engine asks now and then whether it has to stop, and until it has.
extern "C" duk_bool_t morvane_script_is_late(void* user) {
  auto& limits = *static_cast<Limits*>(user);
  if (Clock::now() >= limits.end) limits.isLate = true;
  return limits.isLate && Clock::now() >= limits.end ? 1 : 0;
}

int main() {
  Limits limits;
  duk_context* engine = duk_create_heap(Allocate, Reallocate, Free, &limits, End);
  if (engine == nullptr) return EXIT_FAILURE;
  for (std::string line; std::getline(std::cin, line);) {
    const Json answer = Answer(engine, limits, ProgramIn(line));
    std::cout << answer.dump(-1, ' ', true) << '\n' << std::flush;
  }
  duk_destroy_heap(engine);
  return EXIT_SUCCESS;
}
