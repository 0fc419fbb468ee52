#pragma once

// Whether an address lies in the constant data of the module that holds this function, as its literals do:
// what stands there stays the same for as long as this code runs.
bool IsConstantData(const void* address);
