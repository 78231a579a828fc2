#include "ephemeris/observer.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "stored/loc.h"

#include <cmath>

namespace halvane {

Observer observer_at(double longitude, double latitude, double height) {
    Observer observer;
    observer.longitude = longitude;
    observer.latitude = latitude;
    observer.height = height;
    observer.sine_latitude = std::sin(latitude * radians_per_degree);
    observer.cosine_latitude = std::cos(latitude * radians_per_degree);
    modearthglobe(latitude, height, observer.rho_sine, observer.rho_cosine);
    return observer;
}

const Observer& stored_observer() {
    static Observer observer;
    static unsigned version = 0;
    const Location& location = read_loc();
    if (version != loc_version()) {
        observer = observer_at(longitude_of(location), latitude_of(location), location.elevation);
        version = loc_version();
    }
    return observer;
}

} // namespace halvane
