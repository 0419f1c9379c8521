#include "reference.hpp"
