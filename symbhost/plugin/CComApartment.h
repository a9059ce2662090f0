#pragma once

// COM on this thread, for as long as the object lives.
class CComApartment
{
public:
    // Raises CHostError.
    CComApartment();
    CComApartment(const CComApartment&) = delete;
    CComApartment& operator=(const CComApartment&) = delete;
    ~CComApartment();
};
