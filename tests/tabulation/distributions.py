"""Student's t and chi-square, from series and closed forms of the handbooks; to about 1e-13."""
import functools
import math


@functools.lru_cache(maxsize=None)
def student_quantile(central, degrees):
    """t such that a value of Student's t with this whole number of degrees of freedom lies between -t and t with the
    probability `central`."""
    low, high = 0.0, math.pi / 2  # the angle whose tangent is t / sqrt(degrees): bisection
    for _ in range(200):
        middle = (low + high) / 2
        if student_central(middle, degrees) < central:
            low = middle
        else:
            high = middle
    return math.tan((low + high) / 2) * math.sqrt(degrees)


def student_central(angle, degrees):
    """The probability of the values between -t and t, t = sqrt(degrees) tan(angle): a finite sum."""
    sine, cosine = math.sin(angle), math.cos(angle)
    if degrees % 2 == 0:
        return sine * math.fsum(_cosine_terms(1.0, cosine, range(1, degrees - 1, 2)))
    if degrees == 1:
        return 2 / math.pi * angle
    return 2 / math.pi * (angle + sine * math.fsum(_cosine_terms(cosine, cosine, range(2, degrees - 1, 2))))


def _cosine_terms(first, cosine, numerators):
    yield first
    for numerator in numerators:
        first *= cosine * cosine * numerator / (numerator + 1)
        yield first


def chi_square_tail(x, degrees):
    """The probability of a value above x; the degrees of freedom are any positive number."""
    return 1.0 if x <= 0 else upper_gamma(degrees / 2, x / 2)


def upper_gamma(a, x):
    """The regularised upper incomplete gamma function."""
    factor = math.exp(a * math.log(x) - x - math.lgamma(a))
    if x < a + 1:
        return 1 - factor * _lower_series(a, x)
    return factor * _upper_fraction(a, x)


def _lower_series(a, x):
    term = total = 1 / a
    for n in range(1, 100000):
        term *= x / (a + n)
        total += term
        if term < total * 1e-17:
            return total
    raise ArithmeticError(f"no convergence: {a} {x}")


def _upper_fraction(a, x):
    """The continued fraction of Legendre, from its end: 1 / (x + 1 - a - 1 (1 - a) / (x + 3 - a - ...))."""
    previous = None
    for depth in (2**k for k in range(4, 20)):
        value = 0.0
        for n in range(depth, 0, -1):
            value = n * (n - a) / (x + 2 * n + 1 - a - value)
        value = 1 / (x + 1 - a - value)
        if previous is not None and abs(value - previous) <= 4e-16 * abs(value):
            return value
        previous = value
    return previous
