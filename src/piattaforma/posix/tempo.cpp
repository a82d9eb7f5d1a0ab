// Time: a monotonic clock for the chess clock, the calendar in UTC for the
// game file.
#include <time.h>

#include "piattaforma/piattaforma.h"
#include "piattaforma/posix/terminale.h"

namespace piattaforma {

uint64_t Millisecondi() {
  timespec adesso{};
  clock_gettime(CLOCK_MONOTONIC, &adesso);
  return static_cast<uint64_t>(adesso.tv_sec) * 1000 +
         static_cast<uint64_t>(adesso.tv_nsec) / 1000000;
}

DataOraUTC OraUTC() {
  const time_t adesso = time(nullptr);
  tm utc{};
  gmtime_r(&adesso, &utc);
  return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

}  // namespace piattaforma

namespace piattaforma::terminale {

void DormiFinoA(uint64_t fine) {
  for (uint64_t adesso = Millisecondi(); adesso < fine; adesso = Millisecondi()) {
    const uint64_t resto = fine - adesso;
    timespec attesa{static_cast<time_t>(resto / 1000), static_cast<long>(resto % 1000) * 1000000};
    nanosleep(&attesa, nullptr);
  }
}

}  // namespace piattaforma::terminale
