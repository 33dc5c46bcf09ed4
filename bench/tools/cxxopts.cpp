#include <cstdio>
#include <cxxopts.hpp>
#include <string>

int main(int argc, const char* const* argv) {
  try {
    cxxopts::Options options("tool");
    options.add_options()("v,verbose", "Tell what is being done.")(
        "q,quiet", "Say nothing but errors.")("f,force", "Overwrite files that exist.")(
        "j,jobs", "How many jobs to run at a time.", cxxopts::value<int>()->default_value("1"))(
        "l,level", "How hard to try.", cxxopts::value<int>()->default_value("3"))(
        "retries", "How often to try again.", cxxopts::value<int>())(
        "ratio", "How much to take.", cxxopts::value<double>()->default_value("0.5"))(
        "o,output", "The file to write.", cxxopts::value<std::string>()->default_value(""))(
        "name", "What to call the result.", cxxopts::value<std::string>())(
        "mode", "How to go about it.", cxxopts::value<std::string>()->default_value("safe"));
    const cxxopts::ParseResult result = options.parse(argc, argv);
    const auto& output = result["output"].as<std::string>();
    const auto& mode = result["mode"].as<std::string>();
    if (mode != "fast" && mode != "safe" && mode != "exact")
      throw cxxopts::exceptions::incorrect_argument_type(mode);
    return (result["verbose"].as<bool>() ? 1 : 0) + result["jobs"].as<int>() +
           result["level"].as<int>() + static_cast<int>(result["ratio"].as<double>() * 4) +
           static_cast<int>(output.size() + mode.size());
  } catch (const cxxopts::exceptions::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
