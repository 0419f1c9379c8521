// The plain way to read each rule: slow, obvious, compared with the library.
#pragma once
