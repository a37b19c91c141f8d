#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kit/Run.h"
#include "kit/Scratch.h"

/// For each document whether xmllint finds it valid by the schema; one run for all. Fails the test when the schema
/// itself is refused.
inline std::vector<bool> validBy(const std::string& schema, const std::vector<std::string>& documents) {
    const Scratch scratch;
    std::vector<std::string> command = {"xmllint", "--noout", "--nonet", "--schema", scratch.put("a.xsd", schema)};
    for (std::size_t i = 0; i < documents.size(); ++i)
        command.push_back(scratch.put("document" + std::to_string(i) + ".xml", documents[i]));
    const Result result = run(command);
    EXPECT_NE(result.exit, 127) << "xmllint is not installed";
    EXPECT_NE(result.exit, 5) << result.err;
    std::vector<bool> verdicts(documents.size(), false);
    for (std::size_t i = 0; i < documents.size(); ++i)
        verdicts[i] = result.err.find("/document" + std::to_string(i) + ".xml validates\n") != std::string::npos;
    return verdicts;
}
