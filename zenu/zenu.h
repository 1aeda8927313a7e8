#pragma once

// Every public header of the library.
