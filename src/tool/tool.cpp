// The exported functions of kivo/tool.h. No exception of a declaration reaches the tool: memory
// that ran out is remembered until the parse.

#include <kivo/tool.h>

#include <kivo/status.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <type_traits>

#include "tool/console.h"
#include "tool/outcome.h"
#include "tool/run.h"
#include "tool/scope.h"
#include "tool/value_text.h"

namespace kivo_3_3 {
namespace tool_glue {
namespace {

const char* orEmpty(const char* text) { return text != nullptr ? text : ""; }

// Does something that may run out of memory. Returns `otherwise` if it did.
template <class Work, class Result>
Result remembering(ToolData* tool, Result otherwise, Work work) {
  if (tool == nullptr)
    return otherwise;
  try {
    return work();
  } catch (const std::bad_alloc&) {
    tool->isOutOfMemory = true;
    return otherwise;
  }
}

template <class Work>
void remembering(ToolData* tool, Work work) noexcept {
  remembering(tool, 0, [&] {
    work();
    return 0;
  });
}

ToolData* toolOf(Declaration* declaration) {
  return declaration != nullptr ? &declaration->tool : nullptr;
}

std::string_view bytesOf(const void* value, std::size_t size) {
  return {static_cast<const char*>(value), value != nullptr ? size : 0};
}

// Needs no memory. While a command only declares, its tool tells of it.
int tellOfMemory(const ToolData* tool) {
  if (tool != nullptr && tool->isDescribing)
    return status::exceptionCaught;
  const char* const name = tool != nullptr ? tool->root().name.c_str() : "";
  for (const char* text : {name, *name != '\0' ? ": " : "", "Memory has run out.\n"}) {
    if (tool == nullptr || !tool->root().output) {
      static_cast<void>(std::fputs(text, stderr));
      continue;
    }
    Text unused;
    bool isError = true;
    try {
      tool->root().output(&text, &isError, unused);
    } catch (...) {
      break;  // the tool has no memory for it either, or cannot write it
    }
  }
  return status::exceptionCaught;
}

// Null if there is no memory for it, or for an empty container in it.
ToolData* makeData() noexcept {
  try {
    return new ToolData;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

// Destroys a function for which there is no tool or declaration.
void destroyUnless(const void* owner, const Callable& function) {
  if (owner == nullptr && function.function != nullptr)
    function.destroy(function.function);
}

// The arguments of a tool; those of a command are known already.
std::vector<const char*> wordsOf(const ToolData& tool, int argc, const char* const* argv) {
  std::vector<const char*> words = tool.words;
  if (argc < 0 && words.empty())  // without the name of the tool
    words.push_back("");
  const int count = tool.parent == nullptr && argv != nullptr ? std::abs(argc) : 0;
  words.reserve(words.size() + static_cast<std::size_t>(count) + 1);
  for (int index = 0; index < count && argv[index] != nullptr; ++index)
    words.push_back(argv[index]);
  if (words.empty())
    words.push_back("");
  return words;
}

}  // namespace

int tell(Text& text, const char* answer) {
  text.characters += orEmpty(answer);
  return 0;
}

void note(Declaration* declaration, Note note, const char* text) noexcept {
  remembering(toolOf(declaration), [&] {
    std::string_view* const texts[] = {nullptr,
                                       nullptr,
                                       &declaration->environment,
                                       &declaration->placeholder,
                                       nullptr,
                                       &declaration->only,
                                       &declaration->deprecated,
                                       &declaration->shownDefault};
    if (note == Note::required)
      declaration->isRequired = true;
    else if (note == Note::hidden)
      declaration->isHidden = true;
    else if (note == Note::split)
      declaration->separator = *orEmpty(text);
    else
      *texts[static_cast<int>(note)] = declaration->tool.keep(orEmpty(text));
  });
}

void limit(Declaration* declaration, Limit limit, const void* first, const void* second) noexcept {
  if (limit == Limit::check)
    destroyUnless(declaration, *static_cast<const Callable*>(first));
  remembering(toolOf(declaration), [&] {
    const std::size_t bytes = declaration->type != nullptr ? declaration->type->bytes : 0;
    const auto text = [](const void* given) { return orEmpty(static_cast<const char*>(given)); };
    ToolData& tool = declaration->tool;
    if (limit == Limit::range) {
      declaration->lowest = tool.keep(bytesOf(first, bytes));
      declaration->highest = tool.keep(bytesOf(second, bytes));
    } else if (limit == Limit::choice) {
      const std::string_view value = bytesOf(second, bytes);
      declaration->choices.push_back(
          {tool.keep(text(first)), value.empty() ? value : tool.keep(value)});
    } else if (limit == Limit::deprecatedChoice) {
      declaration->deprecatedChoices.emplace_back(tool.keep(text(first)), tool.keep(text(second)));
    } else {
      OwnedCallable owned(*static_cast<const Callable*>(first));
      declaration->checks.push_back(std::move(owned));
    }
  });
}

unsigned int timesGiven(const Declaration* declaration) noexcept {
  return declaration != nullptr ? declaration->given : 0;
}

}  // namespace tool_glue

using tool_glue::Declaration;
using tool_glue::orEmpty;
using tool_glue::remembering;
using tool_glue::Use;

Tool::Tool(const char* name, const char* summary, const char* version) noexcept
    : m_data(tool_glue::makeData()) {
  remembering(m_data, [&] {
    m_data->handle = this;
    m_data->name = orEmpty(name);
    m_data->summary = orEmpty(summary);
    m_data->version = orEmpty(version);
  });
}

Tool::~Tool() { delete m_data; }

Declaration* Tool::add(Use use, const char* names, const char* help, void* variable,
                       const tool_glue::VariableType* type,
                       const tool_glue::Callable& function) noexcept {
  tool_glue::destroyUnless(m_data, function);
  Declaration* const none = nullptr;
  return remembering(m_data, none, [&] {
    tool_glue::OwnedCallable owned(function);
    Declaration& declaration = m_data->declarations.emplace_back(*m_data, use, type);
    declaration.names = tool_glue::NameList(m_data->keep(orEmpty(names)));
    declaration.help = m_data->keep(orEmpty(help)).data();
    declaration.section = m_data->section;
    declaration.variable = variable;
    declaration.function = std::move(owned);
    return &declaration;
  });
}

Option<bool> Tool::flag(const char* names, bool& variable, const char* help) noexcept {
  return Option<bool>(
      add(Use::flag, names, help, &variable, &tool_glue::variableType<bool, 0>, {}));
}

Option<int> Tool::count(const char* names, int& variable, const char* help) noexcept {
  return Option<int>(add(Use::count, names, help, &variable, &tool_glue::variableType<int, 0>, {}));
}

Option<const char*> Tool::config(const char* names, const char* path, const char* help) noexcept {
  Declaration* const declaration = add(Use::config, names, help, nullptr, nullptr, {});
  remembering(declaration != nullptr ? m_data : nullptr, [&] {
    declaration->path = m_data->keep(orEmpty(path)).data();
    declaration->shownDefault = declaration->path;
  });
  return Option<const char*>(declaration);
}

void Tool::addCommand(const char* words, const char* help,
                      const tool_glue::Callable& function) noexcept {
  tool_glue::destroyUnless(m_data, function);
  remembering(m_data, [&] {
    tool_glue::OwnedCallable owned(function);
    m_data->commands.push_back({orEmpty(words), orEmpty(help), std::move(owned)});
  });
}

void Tool::addToGroup(const char* name, bool isFirst, bool isNeeded) noexcept {
  remembering(m_data, [&] {
    if (isFirst || m_data->groups.empty())  // there was no memory for the first one
      m_data->groups.push_back({{}, isNeeded});
    if (!m_data->isOutOfMemory)  // else there may be no group
      m_data->groups.back().names.emplace_back(orEmpty(name));
  });
}

void Tool::setOutput(const tool_glue::Callable& function) noexcept {
  tool_glue::destroyUnless(m_data, function);
  remembering(m_data, [&] { m_data->root().output = tool_glue::OwnedCallable(function); });
}

void Tool::section(const char* heading) noexcept {
  remembering(m_data, [&] { m_data->section = m_data->keep(orEmpty(heading)).data(); });
}

void Tool::footer(const char* text) noexcept {
  remembering(m_data, [&] { m_data->footers.emplace_back(orEmpty(text)); });
}

void Tool::usageStatus(int status) noexcept {
  if (m_data != nullptr)
    m_data->root().usageStatus = status;
}

bool Tool::parse(int argc, const char* const* argv, int& status) {
  if (m_data == nullptr || m_data->isOutOfMemory) {
    status = tool_glue::tellOfMemory(m_data);
    return true;
  }
  try {
    return run(*m_data, tool_glue::wordsOf(*m_data, argc, argv), status);
  } catch (const std::bad_alloc&) {
    if (m_data->isWorking)
      throw;
    m_data->isOutOfMemory = true;
  }
  status = tool_glue::tellOfMemory(m_data);
  return true;
}

int Tool::fail(const char* reason) noexcept {
  const bool isTold = remembering(m_data, false, [&] {
    printError(*m_data, orEmpty(reason));
    return true;
  });
  return isTold ? m_data->root().usageStatus : tool_glue::tellOfMemory(m_data);
}

IParser* Tool::parser() noexcept {
  IParser* const none = nullptr;
  return remembering(m_data, none, [&] {
    m_data->isParserGivenAway = true;
    return &parserOf(*m_data);
  });
}

const char* Tool::helpText() {
  try {
    return remembering(m_data, "", [&] {
      m_data->help = helpOf(*m_data);
      return m_data->help.c_str();
    });
  } catch (const tool_glue::NoText& failure) {
    std::rethrow_exception(failure.cause);
  }
}

}  // namespace kivo_3_3
