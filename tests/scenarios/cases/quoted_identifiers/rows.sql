SELECT "Line No", "select", "unit_price" FROM "order_lines of 2006" ORDER BY 1;
