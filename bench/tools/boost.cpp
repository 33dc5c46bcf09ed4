#include <boost/program_options.hpp>
#include <cstdio>
#include <string>

namespace po = boost::program_options;

int main(int argc, const char* const* argv) {
  try {
    po::options_description options;
    options.add_options()("verbose,v", po::bool_switch(), "Tell what is being done.")(
        "quiet,q", po::bool_switch(), "Say nothing but errors.")("force,f", po::bool_switch(),
                                                                 "Overwrite files that exist.")(
        "jobs,j", po::value<int>()->default_value(1), "How many jobs to run at a time.")(
        "level,l", po::value<int>()->default_value(3), "How hard to try.")(
        "retries", po::value<int>(), "How often to try again.")(
        "ratio", po::value<double>()->default_value(0.5), "How much to take.")(
        "output,o", po::value<std::string>()->default_value(""), "The file to write.")(
        "name", po::value<std::string>(), "What to call the result.")(
        "mode", po::value<std::string>()->default_value("safe"), "How to go about it.");
    po::variables_map values;
    po::store(po::parse_command_line(argc, argv, options), values);
    po::notify(values);
    const auto& output = values["output"].as<std::string>();
    const auto& mode = values["mode"].as<std::string>();
    if (mode != "fast" && mode != "safe" && mode != "exact")
      throw po::validation_error(po::validation_error::invalid_option_value, "mode");
    return (values["verbose"].as<bool>() ? 1 : 0) + values["jobs"].as<int>() +
           values["level"].as<int>() + static_cast<int>(values["ratio"].as<double>() * 4) +
           static_cast<int>(output.size() + mode.size());
  } catch (const po::error& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
