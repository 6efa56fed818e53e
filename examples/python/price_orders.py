"""Prices the orders of a CSV file by formulas as users have typed them, and plots the turnover.

    price_orders.py [ORDERS.csv PICTURE.png]

In editors that know notebooks, the cells run one by one: each begins with "# %%".
"""

# %% The orders
import pathlib
import sys

import kxjsparser
import matplotlib.pyplot as plot
import pandas

here = pathlib.Path(__file__).parent
source, picture = sys.argv[1:] if len(sys.argv) == 3 else (here / "orders.csv", "turnover.png")
orders = pandas.read_csv(source)
orders["EXPRESS"] = orders["EXPRESS"] == "yes"

# %% The formulas: each may use the columns that those before it have made
formulas = {
    "PRICE": "IIF(QTY>=100,LIST*0.8,IIF(QTY>=10,LIST*0.9,LIST))",
    "NET": "ROUND(PRICE*QTY,2)",
    "FREIGHT": "IIF(NET>=500 .AND. EXPRESS<>TRUE,0,IIF(EXPRESS,19,7.5))",
    "TOTAL": "ROUND((NET+FREIGHT)*RATE,2)",
}

host = kxjsparser.Host(timeout=10)
host["RATE"] = 1.19
for name, formula in formulas.items():
    # Conversion changes what some formulas mean. The check knows which, and what to write instead.
    found = kxjsparser.check(formula)
    if found.rewrite:
        print(f"{name}: {found.findings[0].text}; evaluated: {found.rewrite}")
    orders[name] = host.column(found.rewrite or formula, orders)

# %% Texts, with a record that fails
failures = []
orders["GROUP"] = host.column(
    "UPPERCASE(ITEM.split('-')[0])+'/'+ITEM.split('-')[1].length",
    orders,
    dtype=str,
    failures=failures,
)
for failure in failures:
    print(f"order {orders.ORDER[failure.record]}: {failure.message}")

# %% What came of it
print(orders[["ORDER", "ITEM", "QTY", "NET", "FREIGHT", "TOTAL", "GROUP"]].head(8).to_string())
turnover = orders.groupby("DAY")["TOTAL"].sum()
print(f"{len(orders)} orders on {len(turnover)} days: {turnover.sum():.2f}")

# %% The same as a picture
figure, axes = plot.subplots(figsize=(8, 4))
axes.bar(turnover.index, turnover)
axes.set(title="Turnover", xlabel="day", ylabel="total with tax")
figure.savefig(picture)
