// The tones the in-memory backend recorded, compared in order with the ones a
// test expects: frequency and duration of each, and how many.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>

#include "piattaforma/memoria/memoria.h"

inline void ToniSono(std::initializer_list<memoria::Tono> attesi) {
  const auto& toni = memoria::Toni();
  ASSERT_EQ(toni.size(), attesi.size());
  size_t i = 0;
  for (const memoria::Tono& t : attesi) {
    EXPECT_EQ(toni[i].frequenza, t.frequenza) << i;
    EXPECT_EQ(toni[i].durata, t.durata) << i;
    ++i;
  }
}
