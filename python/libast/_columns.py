"""Columns for those without Arrow."""

# Of values, by Arrow's names of the types of columns; of texts, their places among these.
_TYPES = {"i": "=i4", "l": "=i8", "g": "=f8", "tsn:UTC": "=i8", "u": "=i4", "b": "?"}
_NULLABLE = {"b", "i", "l"}


class Columns:
    """What is left of a recording as columns, a row a record. Made by Recording.columns.

    Whatever takes Arrow takes it as it is, batch by batch, once: pyarrow.table(columns), polars.DataFrame(columns).
    """

    def __init__(self, stream):
        self._stream = stream
        self._heads = stream.heads()

    def __arrow_c_stream__(self, requested_schema=None):
        return self._stream.__arrow_c_stream__(requested_schema)

    def __arrow_c_schema__(self):
        return self._stream.__arrow_c_schema__()

    @property
    def names(self):
        """The names of the columns."""
        return [name for name, _ in self._heads]

    def _arrays(self):
        """(name, type, values, mask of what is missing or None) of each column."""
        import numpy

        nested = [name for name, form in self._heads if form not in _TYPES]
        if nested:
            raise TypeError(f"{', '.join(nested)}: nested columns are for libraries that take Arrow")
        for (name, form), (octets, missing, texts) in zip(self._heads, self._stream.take_all()):
            values = numpy.frombuffer(octets, _TYPES[form])
            if form == "u":
                # A column without any text has no dictionary, only codes of 0.
                values = numpy.array(texts or [None], object)[values]
            yield name, form, values, None if missing is None else numpy.frombuffer(missing, bool)

    def to_numpy(self):
        """A dict of arrays. What is missing is NaN, NaT or None; arrays of whole numbers and flags are masked there."""
        import numpy

        arrays = {}
        for name, form, values, mask in self._arrays():
            if form == "tsn:UTC":
                values = values.view("datetime64[ns]")
            if mask is not None and form in _NULLABLE:
                values = numpy.ma.masked_array(values, mask)
            elif mask is not None:
                values[mask] = {"g": numpy.nan, "u": None}.get(form, numpy.datetime64("NaT"))
            arrays[name] = values
        return arrays

    def to_pandas(self):
        """A DataFrame. Whole numbers and flags are of the types that have missing values."""
        import numpy
        import pandas

        series = {}
        for name, form, values, mask in self._arrays():
            if form in _NULLABLE:
                nothing = numpy.zeros(len(values), bool)
                make = pandas.arrays.BooleanArray if form == "b" else pandas.arrays.IntegerArray
                series[name] = make(values, nothing if mask is None else mask)
            elif form == "tsn:UTC":
                times = values.view("datetime64[ns]")
                if mask is not None:
                    times[mask] = numpy.datetime64("NaT")
                series[name] = pandas.DatetimeIndex(times, tz="UTC")
            else:
                if mask is not None:
                    values[mask] = numpy.nan if form == "g" else None
                series[name] = values
        return pandas.DataFrame(series, copy=False)

