// The start-up tables every board test needs, built once before any test.
#include <gtest/gtest.h>

#include "board/geometria.h"

namespace {

class AmbienteScacchiera : public testing::Environment {
 public:
  void SetUp() override { InizializzaTabelle(); }
};

const testing::Environment* const ambiente =
    testing::AddGlobalTestEnvironment(new AmbienteScacchiera);

}  // namespace
