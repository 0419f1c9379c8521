// Small helpers the unit tests share.
#pragma once
