// Boost.JSON's sources, compiled here once for the tool's own records.
#include <boost/json/src.hpp>
