// Boost.JSON's sources, compiled once here: only its parser is used, so its library is not linked.
#include <boost/json/src.hpp>
