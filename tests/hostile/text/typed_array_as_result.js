new Float64Array([0.1, NaN])
