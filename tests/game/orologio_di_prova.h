// Stands in for the clock's stop until the clock module defines it.
#pragma once

extern int ChiamateFermaOrologio;
