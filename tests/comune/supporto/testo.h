// Line ends of the text files the program writes, for the expected texts of
// the tests, which are written with "\n" alone.
#pragma once

#include <string>

// Every "\n" preceded by "\r".
inline std::string ConCrLf(const std::string& testo) {
  std::string crlf;
  for (char c : testo) {
    if (c == '\n') crlf += '\r';
    crlf += c;
  }
  return crlf;
}

// A text file as this platform's text mode writes it.
inline std::string SulDisco(const std::string& testo) {
#ifdef _WIN32
  return ConCrLf(testo);
#else
  return testo;
#endif
}
