// The library stores numbers into the variables itself; it returns texts, lists and flags one by
// one.

#include <popt.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>

#include "peer.h"

namespace bench {

namespace {

struct EndContext {
  void operator()(poptContext context) const { poptFreeContext(context); }
};
using Context = std::unique_ptr<std::remove_pointer_t<poptContext>, EndContext>;

struct Free {
  void operator()(void* block) const { std::free(block); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

class Popt final : public Peer {
 public:
  explicit Popt(const Workload& workload) : Peer(workload) {
    if (!workload.fileLines.empty())
      m_file = writeOptionFile(workload, "");
  }

  // The table points to the variables, so both are made here.
  void declare() override {
    m_variables.emplace(m_workload);
    m_table.reserve(m_workload.options.size() + 1);
    for (std::size_t i = 0; i < m_workload.options.size(); ++i)
      add(m_workload.options[i], i);
    m_table.push_back(POPT_TABLEEND);
  }

  void tearDown() override {
    m_table.clear();
    m_variables.reset();
  }

  std::uint64_t run() override { return parse(argc(), argv()); }

  std::uint64_t runFile() override {
    std::FILE* file = std::fopen(m_file.c_str(), "r");
    char* line = nullptr;
    poptConfigFileToString(file, &line, 0);
    std::fclose(file);
    const Owned<char> ownedLine(line);
    int count = 0;
    const char** arguments = nullptr;
    poptParseArgvString(("tool" + std::string(line)).c_str(), &count, &arguments);
    const Owned<const char*> ownedArguments(arguments);
    return parse(count, arguments);
  }

  std::string help() override {
    const Context context = makeContext(argc(), argv());
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* file = open_memstream(&text, &size);
    poptPrintHelp(context.get(), file, 0);
    std::fclose(file);
    const Owned<char> owned(text);
    return std::string(text, size);
  }

  std::string error() override {
    const Context context = makeContext(argc(), argv());
    const int status = walk(context.get());
    return std::string(poptBadOption(context.get(), 0)) + ": " + poptStrerror(status);
  }

 private:
  void add(const Option& option, std::size_t index) {
    if (option.positional) {
      m_positional = index;
      return;
    }
    poptOption entry = {};
    entry.longName = option.name.c_str();
    entry.shortName = option.letter.empty() ? '\0' : option.letter[0];
    entry.descrip = option.description.c_str();
    entry.val = static_cast<int>(index) + 1;
    entry.argInfo = POPT_ARG_STRING;
    if (option.kind == Kind::flag)
      entry.argInfo = POPT_ARG_NONE;
    else if (option.kind == Kind::integer)
      bind<int>(entry, POPT_ARG_INT, index);
    else if (option.kind == Kind::unsigned64)
      bind<std::uint64_t>(entry, POPT_ARG_LONGLONG, index);
    else if (option.kind == Kind::real)
      bind<double>(entry, POPT_ARG_DOUBLE, index);
    m_table.push_back(entry);
  }

  template <class T>
  void bind(poptOption& entry, unsigned int type, std::size_t index) {
    entry.argInfo = type;
    entry.arg = &m_variables->get<T>(index);
    entry.val = 0;
  }

  Context makeContext(int argc, const char* const* argv) const {
    return Context(poptGetContext("tool", argc, const_cast<const char**>(argv), m_table.data(), 0));
  }

  std::uint64_t parse(int argc, const char* const* argv) {
    m_variables->reset();
    const Context context = makeContext(argc, argv);
    const int status = walk(context.get());
    if (status != -1)
      throw std::runtime_error(poptStrerror(status));
    if (const char** rest = poptGetArgs(context.get()))
      for (; *rest != nullptr; ++rest)
        m_variables->get<std::vector<std::string>>(m_positional).emplace_back(*rest);
    return m_variables->digest();
  }

  // Returns -1 at the end of the arguments, or another negative number for an error.
  int walk(poptContext context) {
    int value = 0;
    while ((value = poptGetNextOpt(context)) > 0)
      if (!store(context, static_cast<std::size_t>(value) - 1))
        return POPT_ERROR_BADNUMBER;
    return value;
  }

  bool store(poptContext context, std::size_t index) {
    const Option& option = m_workload.options[index];
    if (option.kind == Kind::flag) {
      m_variables->get<bool>(index) = true;
      return true;
    }
    const Owned<char> text(poptGetOptArg(context));
    if (option.kind == Kind::text) {
      m_variables->get<std::string>(index) = text.get();
      return option.isAllowed(text.get());
    }
    if (option.kind == Kind::texts) {
      m_variables->get<std::vector<std::string>>(index).emplace_back(text.get());
      return true;
    }
    char* end = text.get();
    m_variables->get<std::vector<int>>(index).push_back(
        static_cast<int>(std::strtol(text.get(), &end, 10)));
    return end != text.get() && *end == '\0';
  }

  std::optional<Variables<std::string>> m_variables;
  std::vector<poptOption> m_table;
  std::size_t m_positional = 0;
  std::string m_file;
};

}  // namespace

std::unique_ptr<Peer> makePeer(const Workload& workload) {
  return std::make_unique<Popt>(workload);
}

const char* refusal(Work work, int size) {
  if (work == Work::declare)
    return "its options are a constant table";
  if (work == Work::abbreviations || work == Work::ambiguousOption)
    return "it takes no abbreviations";
  if (work == Work::optionFile && size > 10000)
    return "quadratic";
  return nullptr;
}

}  // namespace bench
