SELECT code, name, since FROM sales.client
UNION ALL SELECT code, 'of another owner', NULL FROM public.client ORDER BY code;
